#pragma once

#include <functional>
#include <memory>

#include <QListView>
#include <QStringList>

#include "platform/controls.h"

namespace qt {

class ListColumns;

/// The lines of a list box, drawn from the model itself. Lines that are too long end in an ellipsis
/// and are told whole by their tool tip. Until `Drop` the model must live.
class ListWidget : public QListView {
 public:
  using Split = std::function<QStringList(const QString& line)>;

  explicit ListWidget(platform::ListBox& list, QWidget* parent = nullptr);
  ~ListWidget() override;

  /// Draws every line as cells in common columns, each as wide as its widest cell. `split` gives
  /// the cells of a line; the blanks around them fall away. A column without an alignment stands
  /// left. With `headings` each column has its own above the lines, over one that lights up while
  /// the list has the keyboard. Those who can't see the columns get the cells with two blanks
  /// between.
  void set_cells(Split split, QList<Qt::Alignment> alignments, QStringList headings = {});
  /// A quiet text for when there is no line.
  void set_empty_text(const QString& text);
  /// Whether new lines come into sight, as long as the last one was.
  void set_follows_end(bool follows) { follows_end_ = follows; }

  /// Brings lines and choice up to the model.
  void Refresh();
  /// The model goes away.
  void Drop();

  [[nodiscard]] QSize sizeHint() const override {
    return columns_ ? QSize(400, 300) : QSize(560, 260);
  }

 protected:
  bool event(QEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
      const QModelIndex& index, const QEvent* event) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  class Lines;

  void Measure();
  void DrawHeadings();

  platform::ListBox* list_;
  std::unique_ptr<ListColumns> columns_;  // none: lines as they stand
  std::unique_ptr<Lines> lines_;
  QString empty_text_;
  bool follows_end_ = false, refreshing_ = false;
};

}  // namespace qt

#pragma once

#include <functional>
#include <memory>

#include <QPointer>
#include <QTableView>
#include <QTimer>

#include "platform/grid.h"
#include "qt/look/grid_delegate.h"
#include "qt/look/grid_header.h"
#include "qt/look/grid_model.h"

class QMenu;

namespace qt {

/// Shows a grid and turns mouse and keys into its hooks. Besides moving about: Enter and Space are
/// a double click on the row's name, Ctrl+O on the heading of the current column (sorts), Ctrl+Left
/// and Ctrl+Right move the current column, Ctrl+Shift+Left and Ctrl+Shift+Right narrow and widen
/// it, which is told once the key is let go. The grid must live until `Drop`, after which the
/// widget is empty.
class GridWidget : public QTableView {
 public:
  explicit GridWidget(platform::Grid& grid, QWidget* parent = nullptr);

  /// Brings the screen up to the grid; costs what has changed and can be seen.
  void Refresh();
  void Drop();

  /// For rows that come in the order of time. Columns stay in their places; several rows can be
  /// chosen, and Ctrl+C copies them, cells parted by TAB; while the user has scrolled away from the
  /// end, his current row is left to him. While he scrolls, and half a second longer, the screen is
  /// his alone; then the grid gets the top row that he left.
  void ReadAsTape(const QString& empty_text);
  /// What stands, quietly, below the heading while there are no rows. No part of the table's
  /// contents.
  void set_empty_text(const QString& text);

  /// Shows a column wider than its grid has it, by what room is left beside the last one.
  void Fill(int col);

  /// Fills the menu that the right button and the menu key open.
  std::function<void(QMenu&)> on_menu;

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void updateGeometries() override;

 private:
  void JoinHeader();
  void FollowLook();
  void FollowWidths();
  void FollowCurrent();
  void FollowTopRow();
  bool RunTapeKey(const QKeyEvent& event);
  bool RunCommandKey(const QKeyEvent& event);
  void PointAt(int row, int col);
  void MoveColumn(int from, int to);
  void Widen(int px);
  void UserScrolled();
  void TellTopRow();
  void HoldUnless(bool at_end);
  void LetGo();
  void ScrollPage(QAbstractSlider::SliderAction step);
  void CopyRows() const;
  void FillMenu(QMenu& menu);
  void SetHover(int row);
  void UpdateRow(int row);
  [[nodiscard]] int LastShownRow() const;
  [[nodiscard]] bool AtEnd() const;

  static constexpr int kWidestTwips = 15000;  // what the grid takes

  platform::Grid* grid_;
  std::unique_ptr<GridModel> model_;
  GridDelegate* delegate_;
  GridHeader* header_;
  QPointer<QMenu> menu_;  // while it is open
  int hover_ = -1;
  int top_seen_ = 0;
  int filling_ = -1;  // the column that takes the room left
  bool tape_ = false;
  QString empty_text_;
  QTimer hold_;             // runs out some time after the user's last scrolling
  bool held_ = false;       // the user scrolls
  bool dragging_ = false;   // a boundary of columns
  bool widened_ = false;    // by a key that is still down
  bool following_ = false;  // the model moves the screen, not the user
};

}  // namespace qt

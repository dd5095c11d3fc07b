#pragma once

#include "qt/look/list_columns.h"
#include "qt/look/list_widget.h"

namespace qt {

/// A list in columns, each below its heading and at least as wide. The line below the headings
/// lights up while the list has the keyboard. Until `Drop` the model must
/// live.
class HeadedList : public ListWidget {
 public:
  HeadedList(platform::ListBox& list, const QStringList& headings, const Split& split,
             const QList<Qt::Alignment>& alignments, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override { return {380, 260}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  class Head;
  class Cells;

  /// Takes over the lines as they are now.
  void Measure();

  const platform::ListBox& list_;
  ListColumns columns_;  // line 0 holds the headings
  QWidget* head_;
};

}  // namespace qt

#pragma once

#include <QAbstractItemDelegate>

#include "platform/grid.h"
#include "qt/look/cell_text.h"

namespace qt {

/// Paints the cells straight from the grid: colours, lines and text, then what marks the current
/// row and the one under the mouse without hiding the colours of cells.
class GridDelegate : public QAbstractItemDelegate {
 public:
  static constexpr int kPadding = 7, kTapePadding = 3;

  explicit GridDelegate(const platform::Grid& grid, QObject* parent = nullptr);

  /// For rows of figures alone, close together, of which some can be chosen.
  void DrawAsTape() { tape_ = true; }
  /// The fonts of name and size that the grid asks for.
  void TakeFonts();
  [[nodiscard]] int row_height() const;
  [[nodiscard]] const QFont& font() const { return text_.font(); }
  /// Qt's rows, -1 for none. A view without the focus marks its current row more quietly.
  void set_hover(int row) { hover_ = row; }
  void set_current(const QModelIndex& index, bool focus) {
    current_row_ = index.row();
    current_col_ = index.column();
    focus_ = focus;
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

 private:
  void DrawLines(QPainter& painter, const QRect& cell, const QColor& back) const;
  void DrawCurrent(QPainter& painter, const QRect& cell, int col) const;
  [[nodiscard]] CellText& TextOf(int col) const { return col == 0 && !tape_ ? name_ : text_; }
  // One size of type down a column that is read line by line.
  [[nodiscard]] CellText::Fit fit() const {
    return tape_ ? CellText::Fit::elide : CellText::Fit::narrow;
  }
  [[nodiscard]] int padding() const { return tape_ ? kTapePadding : kPadding; }

  const platform::Grid& grid_;
  mutable CellText name_, text_;  // the first column, the others
  int hover_ = -1, current_row_ = -1, current_col_ = -1;
  bool focus_ = false, tape_ = false;
};

}  // namespace qt

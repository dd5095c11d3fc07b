#include "qt/look/grid_delegate.h"

#include <cmath>

#include "qt/look/ink.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

// Sizes are those of a time of coarse screens, on which the standard size 7 was read well; it is
// shown at the size of the rest of the program.
constexpr double kPointsPerSize = 10.0 / 7.0;

QFont FontFor(const platform::Grid& grid, QFont::Weight weight) {
  QFont font = FontOf(static_cast<double>(grid.font_size()) * kPointsPerSize, weight);
  const QString name = Text(grid.font_name()).trimmed();
  if (!name.isEmpty()) font.setFamilies(QStringList{name} + font.families());
  return font;
}

/// What a line style draws: at the right of a cell, at its foot, and how.
struct Lines {
  bool right, foot;
  enum class Kind { flat, inset, raised, dotted, strong } kind;
};

constexpr Lines kStyles[] = {
    {false, false, Lines::Kind::flat},  {true, true, Lines::Kind::flat},
    {true, true, Lines::Kind::inset},   {true, true, Lines::Kind::raised},
    {false, true, Lines::Kind::flat},   {false, true, Lines::Kind::inset},
    {false, true, Lines::Kind::raised}, {true, false, Lines::Kind::flat},
    {true, false, Lines::Kind::inset},  {true, false, Lines::Kind::raised},
    {true, true, Lines::Kind::dotted},  {true, true, Lines::Kind::strong},
};

}  // namespace

GridDelegate::GridDelegate(const platform::Grid& grid, QObject* parent)
    : QAbstractItemDelegate(parent),
      grid_(grid),
      name_(FontFor(grid, QFont::Medium)),
      text_(FontFor(grid, QFont::Normal)) {}

void GridDelegate::TakeFonts() {
  const QFont wanted = FontFor(grid_, QFont::Normal);
  if (wanted == text_.font()) return;
  text_ = CellText(wanted);
  name_ = CellText(FontFor(grid_, QFont::Medium));
}

int GridDelegate::row_height() const { return static_cast<int>(std::ceil(text_.height())) + 7; }

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const int row = index.row() + 1;
  const int col = index.column();
  const QRect& cell = option.rect;
  const QColor back = ColorOf(grid_.back(row, col));
  painter->fillRect(cell, back);
  if (index.row() == hover_) {
    painter->fillRect(cell,
                      back.lightness() < 128 ? QColor(255, 255, 255, 30) : QColor(0, 0, 0, 20));
  }
  DrawLines(*painter, cell, back);
  if (tape_ && option.state.testFlag(QStyle::State_Selected)) {
    QColor chosen = tone::kAccent;
    chosen.setAlpha(90);
    painter->fillRect(cell, chosen);
  }
  const std::string_view text = grid_.text(row, col);
  if (!text.empty()) {
    const QRectF place = QRectF(cell).adjusted(padding(), 0, -padding(), 0);
    DrawReadable(*painter, ColorOf(grid_.fore(row, col)), back,
                 [&] { TextOf(col).Draw(*painter, place, text, grid_.align(col), fit()); });
  }
  if (index.row() == current_row_) DrawCurrent(*painter, cell, col);
}

void GridDelegate::DrawLines(QPainter& painter, const QRect& cell, const QColor& back) const {
  const Lines& lines = kStyles[grid_.grid_lines()];
  if (!lines.right && !lines.foot) return;
  const bool dark = back.lightness() < 128;
  int strength = dark ? 34 : 30;
  if (lines.kind == Lines::Kind::strong) strength = 90;
  const bool light = dark != (lines.kind == Lines::Kind::inset);
  const QColor color = light ? QColor(255, 255, 255, strength) : QColor(0, 0, 0, strength * 2);
  if (lines.kind == Lines::Kind::dotted) {
    painter.setPen(QPen(color, 1, Qt::DotLine));
    painter.drawLine(cell.topRight(), cell.bottomRight());
    painter.drawLine(cell.bottomLeft(), cell.bottomRight());
    return;
  }
  if (lines.foot) painter.fillRect(cell.left(), cell.bottom(), cell.width(), 1, color);
  if (lines.right) {
    painter.fillRect(cell.right(), cell.top(), 1, cell.height() - (lines.foot ? 1 : 0), color);
  }
}

void GridDelegate::DrawCurrent(QPainter& painter, const QRect& cell, int col) const {
  QColor mark = tone::kAccent;
  if (!focus_) mark.setAlpha(110);
  painter.fillRect(cell.left(), cell.top(), cell.width(), 1, mark);
  painter.fillRect(cell.left(), cell.bottom(), cell.width(), 1, mark);
  if (col == 0) painter.fillRect(cell.left(), cell.top(), 3, cell.height(), mark);
  if (focus_ && col == current_col_ && col > 0) {
    painter.fillRect(cell.left(), cell.top(), 1, cell.height(), mark);
    painter.fillRect(cell.right(), cell.top(), 1, cell.height(), mark);
  }
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
  const double width = TextOf(index.column()).WidthOf(grid_.text(index.row() + 1, index.column()));
  return {static_cast<int>(std::ceil(width)) + 2 * padding(), row_height()};
}

}  // namespace qt

#include "qt/look/grid_delegate.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "qt/look/ink.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

// Sizes are those of a time of coarse screens, on which the standard size 7 was read well; it is
// shown at the size of the rest of the program.
constexpr double kPointsPerSize = 10.0 / 7.0;
constexpr double kLeastPoints = 6;  // what can still be read

QFont FontFor(const platform::Grid& grid, QFont::Weight weight) {
  const double points = static_cast<double>(grid.font_size()) * kPointsPerSize;
  QFont font = FontOf(std::max(points, kLeastPoints), weight);
  const QString name = Text(grid.font_name()).trimmed();
  if (!name.isEmpty()) font.setFamilies(QStringList{name} + font.families());
  return font;
}

/// One of the thin lines that a style is made of: dots from the edge of the cell, and its opacity.
struct Stroke {
  int inward, strength;
};

constexpr Stroke kFine[] = {{0, 34}};
constexpr Stroke kDouble[] = {{0, 60}, {2, 60}};
constexpr Stroke kRaised[] = {{0, 30}, {1, 130}, {2, 30}};
constexpr Stroke kDots[] = {{0, 120}};
constexpr Stroke kStrong[] = {{0, 120}, {1, 120}};

/// What a line style draws at the right of a cell and at its foot.
struct Lines {
  bool right, foot;
  std::span<const Stroke> strokes;
};

constexpr Lines kStyles[] = {
    {false, false, {}},     {true, true, kFine},    {true, true, kDouble},  {true, true, kRaised},
    {false, true, kFine},   {false, true, kDouble}, {false, true, kRaised}, {true, false, kFine},
    {true, false, kDouble}, {true, false, kRaised}, {true, true, kDots},    {true, true, kStrong},
};

void DrawDots(QPainter& painter, const QRect& line, const QColor& color) {
  QPen pen(color, 1, Qt::CustomDashLine, Qt::FlatCap);
  pen.setDashPattern({1, 2});
  painter.setPen(pen);
  painter.drawLine(line.topLeft(), line.bottomRight());
}

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
  const bool dotted = lines.strokes.data() == kDots;
  const bool dark = back.lightness() < 128;
  for (const auto& [inward, strength] : lines.strokes) {
    const QColor color = dark ? QColor(255, 255, 255, strength) : QColor(0, 0, 0, strength * 3 / 2);
    const auto draw = [&](const QRect& line) {
      dotted ? DrawDots(painter, line, color) : painter.fillRect(line, color);
    };
    const int foot = lines.foot ? inward + 1 : 0;
    if (lines.foot) draw({cell.left(), cell.bottom() - inward, cell.width(), 1});
    if (lines.right) draw({cell.right() - inward, cell.top(), 1, cell.height() - foot});
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

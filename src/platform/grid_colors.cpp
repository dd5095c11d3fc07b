#include <algorithm>
#include <utility>

#include "platform/grid.h"

namespace platform {

Grid::CellColors Grid::ColorsAt(int row, int col) const {
  if (!Inside(row, col)) return {};
  const Row& at = rows_[static_cast<std::size_t>(row)];
  return at.own_colors ? at.own_colors[static_cast<std::size_t>(col)] : at.colors;
}

base::Color Grid::fore(int row, int col) const {
  const base::Color fore = ColorsAt(row, col).fore;
  return fore == kUnset ? fore_color_ : fore;
}

base::Color Grid::back(int row, int col) const {
  const base::Color back = ColorsAt(row, col).back;
  return back == kUnset ? back_color_ : back;
}

void Grid::set_fore(int row, int col, base::Color fore) {
  if (!Inside(row, col)) return;
  SetColors(row, col, col, {fore, ColorsAt(row, col).back});
}

void Grid::set_back(int row, int col, base::Color back) {
  if (!Inside(row, col)) return;
  SetColors(row, col, col, {ColorsAt(row, col).fore, back});
}

void Grid::set_colors(int row, int col, base::Color fore, base::Color back) {
  if (Inside(row, col)) SetColors(row, col, col, {fore, back});
}

void Grid::set_row_colors(int row, int first_col, base::Color fore, base::Color back) {
  if (Inside(row, first_col)) SetColors(row, first_col, cols() - 1, {fore, back});
}

void Grid::SetColors(int row, int first_col, int last_col, CellColors colors) {
  Row& at = rows_[static_cast<std::size_t>(row)];
  const bool whole_row = first_col == 0 && last_col == cols() - 1;
  if (!at.own_colors) {
    if (at.colors == colors) return;
    if (whole_row) {
      at.colors = colors;
      TouchRow(row);
      return;
    }
    at.own_colors = NewColors();
    std::fill_n(at.own_colors.get(), columns_.size(), at.colors);
  }
  CellColors* const first = at.own_colors.get() + first_col;
  CellColors* const end = at.own_colors.get() + last_col + 1;
  if (!std::all_of(first, end, [&](const CellColors& old) { return old == colors; })) {
    std::fill(first, end, colors);
    TouchRow(row);
  }
  if (!whole_row) return;
  at.colors = colors;
  spare_colors_.push_back(std::move(at.own_colors));
}

std::unique_ptr<Grid::CellColors[]> Grid::NewColors() {
  if (spare_colors_.empty()) return std::make_unique<CellColors[]>(columns_.size());
  auto colors = std::move(spare_colors_.back());
  spare_colors_.pop_back();
  return colors;
}

// Before `columns_` follows.
void Grid::TakeColors(Row& row, const std::vector<int>& source) {
  const bool adds_columns = std::find(source.begin(), source.end(), -1) != source.end();
  if (!row.own_colors && (!adds_columns || row.colors == CellColors{})) return;
  auto colors = std::make_unique<CellColors[]>(source.size());
  for (std::size_t c = 0; c < source.size(); ++c) {
    if (source[c] < 0) continue;
    colors[c] = row.own_colors ? row.own_colors[static_cast<std::size_t>(source[c])] : row.colors;
  }
  row.own_colors = std::move(colors);
}

}  // namespace platform

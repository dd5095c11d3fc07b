#include "platform/grid.h"

#include <algorithm>
#include <numeric>

namespace platform {

Grid::Grid() = default;
Grid::~Grid() = default;

void Grid::set_rows(int rows) {
  rows = std::max(rows, 0);
  if (rows == this->rows()) return;
  ++name_changes_;
  const auto size = static_cast<std::size_t>(rows);
  if (rows < this->rows()) {
    rows_.resize(size);
    ClampPositions();
    TouchAll();
    return;
  }
  // By an eighth: doubling would cost a long list nearly twice its rows.
  if (size > rows_.capacity()) rows_.reserve(std::max(size, rows_.size() + rows_.size() / 8 + 16));
  rows_.resize(size);
  Touch();
}

int Grid::AddRow() {
  set_rows(rows() + 1);
  return rows() - 1;
}

void Grid::ClampPositions() {
  const int last_row = std::max(rows() - 1, 0);
  const int last_col = std::max(cols() - 1, 0);
  row_ = std::min(row_, last_row);
  row_sel_ = std::min(row_sel_, last_row);
  top_row_ = std::min(top_row_, last_row);
  col_ = std::min(col_, last_col);
  col_sel_ = std::min(col_sel_, last_col);
}

bool Grid::set_row(int row) {
  if (!HasRow(row)) return false;
  Set(row_, row);
  Set(row_sel_, row);
  return true;
}

bool Grid::set_col(int col) {
  if (!HasCol(col)) return false;
  Set(col_, col);
  Set(col_sel_, col);
  return true;
}

bool Grid::set_row_sel(int row) {
  if (!HasRow(row)) return false;
  Set(row_sel_, row);
  return true;
}

bool Grid::set_col_sel(int col) {
  if (!HasCol(col)) return false;
  Set(col_sel_, col);
  return true;
}

bool Grid::Select(int row1, int col1, int row2, int col2) {
  if (!Inside(row1, col1) || !Inside(row2, col2)) return false;
  Set(row_, row1);
  Set(col_, col1);
  Set(row_sel_, row2);
  Set(col_sel_, col2);
  return true;
}

void Grid::set_top_row(int row) { Set(top_row_, std::clamp(row, 0, std::max(rows() - 1, 0))); }

void Grid::set_cols(int cols) {
  cols = std::max(cols, 0);
  if (cols == this->cols()) return;
  std::vector<int> source(static_cast<std::size_t>(cols), -1);
  const auto kept = source.begin() + std::min(cols, this->cols());
  std::iota(source.begin(), kept, 0);
  TakeColumns(source);
  ClampPositions();
}

void Grid::MoveColumn(int from, int to) {
  if (!HasCol(from) || !HasCol(to) || from == to) return;
  std::vector<int> source(columns_.size());
  std::iota(source.begin(), source.end(), 0);
  source.erase(source.begin() + from);
  source.insert(source.begin() + to, from);
  TakeColumns(source);
}

// Column c becomes what column source[c] was, or a new one where that is -1.
void Grid::TakeColumns(const std::vector<int>& source) {
  RowText text;
  for (Row& row : rows_) {
    text.Clear();
    for (const int from : source) text.Add(from < 0 ? std::string_view{} : Cell(row, from));
    StoreCells(row.cells, source.size(), text);
    TakeColors(row, source);
  }
  std::vector<Column> columns(source.size());
  for (std::size_t c = 0; c < source.size(); ++c) {
    if (source[c] >= 0) columns[c] = columns_[static_cast<std::size_t>(source[c])];
  }
  columns_ = std::move(columns);
  spare_colors_.clear();
  ++heading_changes_;
  ++name_changes_;
  TouchAll();
}

int Grid::width(int col) const {
  return HasCol(col) ? columns_[static_cast<std::size_t>(col)].width : 0;
}

void Grid::set_width(int col, int twips) {
  if (!HasCol(col) || twips < 0 || twips > 15000) return;
  SetLook(columns_[static_cast<std::size_t>(col)].width, twips);
}

Align Grid::align(int col) const {
  return HasCol(col) ? columns_[static_cast<std::size_t>(col)].align : Align::left;
}

void Grid::set_align(int col, Align align) {
  if (HasCol(col)) SetLook(columns_[static_cast<std::size_t>(col)].align, align);
}

void Grid::set_fore_color(base::Color color) { SetLook(fore_color_, color); }
void Grid::set_back_color(base::Color color) { SetLook(back_color_, color); }
void Grid::set_grid_lines(int style) { SetLook(grid_lines_, std::clamp(style, 0, 11)); }
void Grid::set_font_name(std::string_view name) { SetLook(font_name_, name); }

void Grid::set_font_size(float points) {
  if (points > 0 && points <= 72) SetLook(font_size_, points);
}

void Grid::TouchRow(int row) {
  Touch();
  if (all_dirty_ || row >= added_from_) return;
  if (row_is_dirty_.size() < rows_.size()) row_is_dirty_.resize(rows_.size());
  std::uint8_t& is_dirty = row_is_dirty_[static_cast<std::size_t>(row)];
  if (is_dirty) return;
  is_dirty = 1;
  dirty_rows_.push_back(row);
}

void Grid::TouchAll() {
  all_dirty_ = true;
  Touch();
}

Grid::Changes Grid::TakeChanges() {
  Changes changes;
  changes.all = all_dirty_;
  for (const int row : dirty_rows_) row_is_dirty_[static_cast<std::size_t>(row)] = 0;
  if (!all_dirty_) {
    std::sort(dirty_rows_.begin(), dirty_rows_.end());
    for (const int row : dirty_rows_) {
      if (!changes.rows.empty() && changes.rows.back().last == row - 1) {
        changes.rows.back().last = row;
      } else {
        changes.rows.push_back({row, row});
      }
    }
    if (added_from_ < rows()) {
      if (!changes.rows.empty() && changes.rows.back().last == added_from_ - 1) {
        changes.rows.back().last = rows() - 1;
      } else {
        changes.rows.push_back({added_from_, rows() - 1});
      }
    }
  }
  dirty_rows_.clear();
  all_dirty_ = false;
  added_from_ = rows();
  Clean();
  return changes;
}

}  // namespace platform

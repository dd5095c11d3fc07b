#include <algorithm>
#include <cstring>

#include "platform/grid.h"

namespace platform {

namespace {

constexpr std::size_t kMaxBytes = 65535;
constexpr std::size_t kEndSize = sizeof(std::uint16_t);

// The first `rest` up to `separator`; takes both off.
std::string_view TakePiece(std::string_view& rest, char separator) {
  const std::size_t at = rest.find(separator);
  const std::string_view piece = rest.substr(0, at);
  rest.remove_prefix(at == std::string_view::npos ? rest.size() : at + 1);
  return piece;
}

std::uint16_t EndAt(const std::string& cells, std::size_t col) {
  std::uint16_t end;
  std::memcpy(&end, cells.data() + col * kEndSize, kEndSize);
  return end;
}

void PutEnd(std::string& cells, std::size_t col, std::size_t end) {
  const auto value = static_cast<std::uint16_t>(end);
  std::memcpy(cells.data() + col * kEndSize, &value, kEndSize);
}

}  // namespace

void RowText::EndCell() {
  const std::size_t begin = ends_.empty() ? 0 : ends_.back();
  if (data_.size() > kMaxBytes) data_.resize(begin);
  ends_.push_back(static_cast<std::uint16_t>(data_.size()));
}

std::string_view RowText::cell(int c) const {
  if (c < 0 || c >= cells()) return {};
  const auto at = static_cast<std::size_t>(c);
  const std::size_t begin = at == 0 ? 0 : ends_[at - 1];
  return std::string_view(data_).substr(begin, ends_[at] - begin);
}

std::string_view Grid::Cell(const Row& row, int col) const {
  if (row.cells.empty()) return {};
  const auto at = static_cast<std::size_t>(col);
  const std::size_t begin = at == 0 ? 0 : EndAt(row.cells, at - 1);
  return {row.cells.data() + columns_.size() * kEndSize + begin, EndAt(row.cells, at) - begin};
}

std::string_view Grid::text(int row, int col) const {
  return Inside(row, col) ? Cell(rows_[static_cast<std::size_t>(row)], col) : std::string_view{};
}

void Grid::set_text(int row, int col, std::string_view text) {
  if (!Inside(row, col)) return;
  std::string& cells = rows_[static_cast<std::size_t>(row)].cells;
  const std::string_view old = Cell(rows_[static_cast<std::size_t>(row)], col);
  const std::size_t ends = columns_.size() * kEndSize;
  const std::size_t bytes = cells.empty() ? 0 : cells.size() - ends;
  if (bytes - old.size() + text.size() > kMaxBytes) text = {};
  if (old == text) return;

  if (cells.empty()) cells.resize(ends);
  const auto at = static_cast<std::size_t>(col);
  const std::size_t begin = at == 0 ? 0 : EndAt(cells, at - 1);
  const std::size_t old_size = old.size();
  cells.replace(ends + begin, old_size, text);
  for (std::size_t c = at; c < columns_.size(); ++c) {
    PutEnd(cells, c, EndAt(cells, c) + text.size() - old_size);
  }
  if (cells.size() == ends) cells.clear();
  if (row == 0) ++heading_changes_;
  if (col == 0) ++name_changes_;
  TouchRow(row);
}

void Grid::set_row_text(int row, const RowText& cells) {
  if (!HasRow(row)) return;
  const bool renamed = text(row, 0) != cells.cell(0);
  if (!StoreCells(rows_[static_cast<std::size_t>(row)].cells, columns_.size(), cells)) return;
  if (row == 0) ++heading_changes_;
  if (renamed) ++name_changes_;
  TouchRow(row);
}

bool Grid::StoreCells(std::string& cells, std::size_t cols, const RowText& text) {
  const std::size_t given = std::min(cols, text.ends_.size());
  const std::size_t bytes = given == 0 ? 0 : text.ends_[given - 1];
  if (bytes == 0) {
    if (cells.empty()) return false;
    cells.clear();
    return true;
  }
  const std::size_t ends = cols * kEndSize;
  // Ends never fall, so those past the given ones can't differ where the sizes are equal.
  if (cells.size() == ends + bytes &&
      std::memcmp(cells.data(), text.ends_.data(), given * kEndSize) == 0 &&
      std::memcmp(cells.data() + ends, text.data_.data(), bytes) == 0) {
    return false;
  }
  cells.resize(ends + bytes);
  std::memcpy(cells.data(), text.ends_.data(), given * kEndSize);
  for (std::size_t c = given; c < cols; ++c) PutEnd(cells, c, bytes);
  std::memcpy(cells.data() + ends, text.data_.data(), bytes);
  return true;
}

void Grid::set_clip(std::string_view text) {
  const auto [first_row, last_row] = std::minmax(row_, row_sel_);
  const auto [first_col, last_col] = std::minmax(col_, col_sel_);
  for (int r = first_row; r <= last_row && !text.empty(); ++r) {
    std::string_view cells = TakePiece(text, '\r');
    for (int c = first_col; c <= last_col && !cells.empty(); ++c) {
      set_text(r, c, TakePiece(cells, '\t'));
    }
  }
}

std::string Grid::AllText() const {
  std::string all;
  for (const Row& row : rows_) {
    for (int c = 0; c < cols(); ++c) {
      if (c > 0) all += '\t';
      all += Cell(row, c);
    }
    all += '\r';
  }
  return all;
}

}  // namespace platform

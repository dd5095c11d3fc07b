#include "calc/sheet_copy.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace calc {

SheetCopy::Row* SheetCopy::Find(int row, int first, int last) {
  const bool inside = row >= 1 && row < std::ssize(rows_) && first >= 1 &&
                      last <= platform::Spreadsheet::kCols && first <= last;
  return inside ? &rows_[static_cast<std::size_t>(row)] : nullptr;
}

const Value& SheetCopy::value(int row, int col) const {
  if (row < 1 || row >= std::ssize(rows_) || col < 1 || col > platform::Spreadsheet::kCols) {
    return empty_;
  }
  const Row& found = rows_[static_cast<std::size_t>(row)];
  if ((found.formulas & ColumnBit(col)) != 0) return empty_;
  return found.values[static_cast<std::size_t>(col)];
}

// The user may have written over the cell since: so it goes out again, whatever was there.
Value* SheetCopy::Write(int row, int col) {
  Row* const found = Find(row, col, col);
  if (found == nullptr) return nullptr;
  found->written |= ColumnBit(col);
  found->formulas &= static_cast<Columns>(~ColumnBit(col));
  waiting_ = true;
  return &found->values[static_cast<std::size_t>(col)];
}

void SheetCopy::SetNumber(int row, int col, double number) {
  Value* const cell = Write(row, col);
  if (cell == nullptr) return;
  if (std::isfinite(number)) {
    *cell = number;
  } else {
    *cell = std::monostate();
  }
}

void SheetCopy::SetText(int row, int col, std::string_view text) {
  Value* const cell = Write(row, col);
  if (cell == nullptr) return;
  const std::string_view cut = CutText(text);
  auto* const old = std::get_if<std::string>(cell);
  if (cut.empty()) {
    *cell = std::monostate();
  } else if (old == nullptr) {
    cell->emplace<std::string>(cut);
  } else if (*old != cut) {
    old->assign(cut);
  }
}

void SheetCopy::SetFormula(int row, int col, std::string_view formula) {
  if (!formula.starts_with('=') || CutText(formula).size() < formula.size()) return;
  Value* const cell = Write(row, col);
  if (cell == nullptr) return;
  cell->emplace<std::string>(formula);
  rows_[static_cast<std::size_t>(row)].formulas |= ColumnBit(col);
}

void SheetCopy::SetFore(int row, int first, int last, base::Color color) {
  Colour(&Row::fore, row, first, last, color);
}

void SheetCopy::SetBack(int row, int col, base::Color color) {
  Colour(&Row::back, row, col, col, color);
}

void SheetCopy::Colour(Paint Row::*paint, int row, int first, int last, base::Color color) {
  Row* const found = Find(row, first, last);
  if (found == nullptr) return;
  for (auto col = static_cast<std::size_t>(first); col <= static_cast<std::size_t>(last); ++col) {
    auto& wanted = (found->*paint).wanted[col];
    if (wanted == color) continue;
    wanted = color;
    found->painted = waiting_ = true;
  }
}

void SheetCopy::Open() {
  rows_.assign(platform::Spreadsheet::kRows + 1, Row());
  waiting_ = false;
  ++codes_version_;
}

void SheetCopy::Forget() {
  if (rows_.empty()) return;
  rows_ = {};
  waiting_ = false;
  ++codes_version_;
}

// So that the next colour goes out whatever it is. Those that wait still do.
void SheetCopy::ForgetSent(Paint& paint) {
  for (std::size_t col = 1; col < kWidth; ++col) {
    if (paint.wanted[col] == paint.sent[col]) paint.wanted[col] = std::nullopt;
    paint.sent[col] = std::nullopt;
  }
}

void SheetCopy::Take(const RowLine& found) {
  Row* const row = Find(found.row, found.col, found.col + static_cast<int>(found.cells.size()) - 1);
  const bool formula = std::ranges::any_of(found.cells, &CellField::formula);
  if (row == nullptr || formula) return;
  for (int col = found.col; const CellField& cell : found.cells) {
    const Columns bit = ColumnBit(col);
    if (((row->written | row->sent) & bit) == 0) {
      row->formulas &= static_cast<Columns>(~bit);
      row->values[static_cast<std::size_t>(col)] = cell.value;
      // Whoever has changed, undone or moved this may have changed the colours with it.
      for (Paint* const paint : {&row->fore, &row->back}) ForgetSent(*paint);
      if (col == 1) ++codes_version_;
    }
    ++col;
  }
}

void SheetCopy::AppendBatch(std::string& out) {
  waiting_ = false;
  for (int number = 1; number < std::ssize(rows_); ++number) {
    Row& row = rows_[static_cast<std::size_t>(number)];
    AppendRows(out, number, row.written, [&](int col) {
      AppendCell(out, row.values[static_cast<std::size_t>(col)],
                 (row.formulas & ColumnBit(col)) != 0);
    });
    row.sent |= std::exchange(row.written, Columns{0});
  }
  AppendColors(out, "fore", &Row::fore);
  AppendColors(out, "back", &Row::back);
  for (Row& row : rows_) row.painted = false;
}

void SheetCopy::AppendColors(std::string& out, std::string_view word, Paint Row::*paint) {
  std::map<base::Color, std::vector<Block>> blocks;
  for (int number = 1; number < std::ssize(rows_); ++number) {
    Row& row = rows_[static_cast<std::size_t>(number)];
    if (!row.painted) continue;
    std::map<base::Color, Columns> columns;
    Paint& colors = row.*paint;
    for (int col = 1; col <= platform::Spreadsheet::kCols; ++col) {
      const auto i = static_cast<std::size_t>(col);
      if (colors.wanted[i] != colors.sent[i]) columns[*colors.wanted[i]] |= ColumnBit(col);
    }
    colors.sent = colors.wanted;
    for (const auto& [color, cols] : columns) {
      ForEachRun(cols, [&, to = &blocks[color]](int first, int last) {
        AddRun(*to, number, first, last);
      });
    }
  }
  for (const auto& [color, ranges] : blocks) {
    out += word;
    AppendInteger(out, color);
    for (const Block& range : ranges) {
      for (const int n : {range.row, range.col, range.rows, range.cols}) AppendInteger(out, n);
    }
    out += '\n';
  }
}

void SheetCopy::TakenIn() {
  for (Row& row : rows_) row.sent = 0;
}

}  // namespace calc

#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "calc/lines.h"
#include "calc/office.h"

namespace calc {

/// What the terminal wants on the sheet, collected line by line and then written in as few steps as
/// possible: neighbouring cells as one block, each colour at once.
class Batch {
 public:
  Batch() : rows_(platform::Spreadsheet::kRows + 1) {}

  /// An empty batch for the sheet of that number.
  void Begin(int number, int sheet);
  [[nodiscard]] int number() const { return number_; }  // 0 is none
  [[nodiscard]] int sheet() const { return sheet_; }

  void Add(const RowLine& row);
  /// `fields` are the rest of the line; a broken one is left out.
  void AddFore(Fields& fields) { AddColor(fields, fore_); }
  void AddBack(Fields& fields) { AddColor(fields, back_); }

  /// Calls `take(row, col, value)` for each cell, empty for a formula.
  template <typename Take>
  void ForEachCell(Take&& take) const;
  /// What can't be written is left out; false when the sheet is gone.
  bool Write(Office& office) const;

 private:
  struct Row {
    std::array<Value, platform::Spreadsheet::kCols + 1> values;
    Columns plain = 0, formulas = 0;
  };
  struct Paint {
    base::Color color = 0;
    std::vector<Block> blocks;
  };

  static void AddColor(Fields& fields, std::vector<Paint>& paints);
  [[nodiscard]] std::vector<Value> ValuesOf(const Block& block) const;
  [[nodiscard]] const Value& At(int row, int col) const {
    return rows_[static_cast<std::size_t>(row)].values[static_cast<std::size_t>(col)];
  }

  int number_ = 0, sheet_ = 0;
  std::vector<Row> rows_;  // from 1
  std::vector<Paint> fore_, back_;
};

template <typename Take>
void Batch::ForEachCell(Take&& take) const {
  const Value empty;
  for (int row = 1; row < std::ssize(rows_); ++row) {
    const Row& cells = rows_[static_cast<std::size_t>(row)];
    for (int col = 1; col <= platform::Spreadsheet::kCols; ++col) {
      if ((cells.plain & ColumnBit(col)) != 0) take(row, col, At(row, col));
      if ((cells.formulas & ColumnBit(col)) != 0) take(row, col, empty);
    }
  }
}

}  // namespace calc

#pragma once

#include <cstdint>
#include <vector>

namespace calc {

/// Cells of one sheet from (row, col) on, rows and columns from 1, both ends inside.
struct Block {
  int row = 0, col = 0, rows = 0, cols = 0;
  friend bool operator==(const Block&, const Block&) = default;
};

/// A set of the columns 1 to 15, each the bit of its number.
using Columns = std::uint16_t;

[[nodiscard]] constexpr Columns ColumnBit(int col) { return static_cast<Columns>(1U << col); }

/// Calls `run(first, last)` for each stretch of neighbouring columns, from the left.
template <typename Run>
void ForEachRun(Columns columns, Run&& run) {
  for (int first = 1; first <= 15; ++first) {
    if ((columns & ColumnBit(first)) == 0) continue;
    int last = first;
    while (last < 15 && (columns & ColumnBit(last + 1)) != 0) ++last;
    run(first, last);
    first = last;
  }
}

/// Adds columns `first` to `last` of a row, to the block that ends just above in the same columns
/// where there is one. Rows come in rising order.
void AddRun(std::vector<Block>& blocks, int row, int first, int last);

}  // namespace calc

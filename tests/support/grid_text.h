#pragma once

#include <string>

#include "platform/grid.h"

namespace support {

/// The row's cells as "a|b|c".
[[nodiscard]] inline std::string RowText(const platform::Grid& grid, int row) {
  std::string out;
  for (int c = 0; c < grid.cols(); ++c) out.append(c > 0 ? "|" : "").append(grid.text(row, c));
  return out;
}

/// All rows, heading included, each as a line "a|b|c" with a line feed at its end.
[[nodiscard]] inline std::string GridText(const platform::Grid& grid) {
  std::string out;
  for (int r = 0; r < grid.rows(); ++r) out += RowText(grid, r) + '\n';
  return out;
}

}  // namespace support

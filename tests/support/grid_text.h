#pragma once

#include <map>
#include <string>
#include <utility>

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

/// The first character of each row's name.
[[nodiscard]] inline std::string Initials(const platform::Grid& grid) {
  std::string out;
  for (int r = 1; r < grid.rows(); ++r) out += grid.text(r, 0).substr(0, 1);
  return out;
}

/// A sign for each cell of the row, by its text and back colour; "?" for other colours.
using ColorSigns = std::map<std::pair<base::Color, base::Color>, char>;
[[nodiscard]] inline std::string Marks(const platform::Grid& grid, int row,
                                       const ColorSigns& signs) {
  std::string out;
  for (int c = 0; c < grid.cols(); ++c) {
    const auto sign = signs.find({grid.fore(row, c), grid.back(row, c)});
    out += sign == signs.end() ? '?' : sign->second;
  }
  return out;
}

/// What the user does with the mouse; `hook` is one of the grid's.
template <typename Hook>
void Mouse(platform::Grid& grid, int row, int col, const Hook& hook) {
  grid.mouse_row = row;
  grid.mouse_col = col;
  hook();
}

}  // namespace support

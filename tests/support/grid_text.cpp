#include "support/grid_text.h"

namespace support {

std::string RowText(const platform::Grid& grid, int row) {
  std::string out;
  for (int c = 0; c < grid.cols(); ++c) {
    if (c > 0) out += '|';
    out += grid.text(row, c);
  }
  return out;
}

std::string GridText(const platform::Grid& grid) {
  std::string out;
  for (int r = 0; r < grid.rows(); ++r) out += RowText(grid, r) + '\n';
  return out;
}

}  // namespace support

#include "calc/blocks.h"

#include <algorithm>

namespace calc {

void AddRun(std::vector<Block>& blocks, int row, int first, int last) {
  const int cols = last - first + 1;
  const auto above = std::find_if(blocks.rbegin(), blocks.rend(), [&](const Block& block) {
    return block.row + block.rows == row && block.col == first && block.cols == cols;
  });
  if (above != blocks.rend()) {
    ++above->rows;
  } else {
    blocks.push_back({row, first, 1, cols});
  }
}

}  // namespace calc

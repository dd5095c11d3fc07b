#pragma once

#include <string>

#include "platform/grid.h"

namespace support {

/// The row's cells as "a|b|c".
[[nodiscard]] std::string RowText(const platform::Grid& grid, int row);

/// All rows, heading included, each as a line "a|b|c" with a line feed at its end.
[[nodiscard]] std::string GridText(const platform::Grid& grid);

}  // namespace support

#pragma once

#include <array>
#include <span>
#include <string_view>
#include <vector>

#include "base/masks.h"
#include "base/program_dir.h"
#include "views/cell_text.h"

namespace views {

/// Which optional columns are shown: "1" at 1 to 12, anything else not. 0 is unused.
using ColFlags = std::array<char, 13>;

/// Reads the flags of a ".CAM" file. Where it is empty or turns no column on, all are "1" and the
/// answer is false: the window keeps the layout of its design.
bool ReadColFlags(const base::ProgramDir& dir, std::string_view file, ColFlags& flags);

/// One column of a view's design. Widths in twips.
struct Columna {
  std::string_view heading;
  Campo campo = Campo::ninguno;
  int width = 0;
};

/// The columns of a view besides the name. All of it are constants.
struct ColumnTable {
  int name_width = 0;
  /// Left to right, as long as no file says otherwise.
  std::span<const Columna> design{};
  /// Headings by flag, from 0; "" makes no column.
  std::array<std::string_view, 12> by_flag{};
  /// Headings that follow those of the flags.
  std::span<const std::string_view> closing{};
  /// Headings that are known as well, should a column come to bear one.
  std::span<const Columna> others{};
  /// How prices are written.
  const base::Mask* price = &base::masks::kPrice;

  /// The column of that heading; an empty one where the heading is unknown.
  [[nodiscard]] Columna Of(std::string_view heading) const;
  /// The headings of the design.
  [[nodiscard]] std::vector<std::string_view> Designed() const;
  /// Those that the flags turn on, then the closing ones.
  [[nodiscard]] std::vector<std::string_view> Flagged(const ColFlags& flags) const;
};

}  // namespace views

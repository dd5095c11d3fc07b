#pragma once

#include <string_view>

#include "base/program_dir.h"
#include "platform/grid.h"
#include "platform/window.h"

// ".POS" files: a window's place and column widths in twips, as 16-bit records. Height, width, left
// and top of the window stand first, the width of column k in record 5 + k.
namespace views {

/// What stands where in the file.
enum class LayoutForm { place_first, widths_first };

/// Applies the file where it is longer than 10 bytes. Widths that no column can have are left out;
/// so is a window smaller than 1000 either way. Its place is taken as it stands: what room there is
/// shows only when the window does.
void ReadLayout(const base::ProgramDir& dir, std::string_view file, platform::Window& window,
                platform::Grid& grid);

/// Writes the file. The record of a value that doesn't fit keeps its bytes, as does what follows
/// the last column.
void WriteLayout(const base::ProgramDir& dir, std::string_view file, const platform::Window& window,
                 const platform::Grid& grid);

}  // namespace views

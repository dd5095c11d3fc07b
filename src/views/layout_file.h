#pragma once

#include <string_view>

#include "base/program_dir.h"
#include "platform/grid.h"
#include "platform/window.h"

// ".POS" files: a window's place and column widths in twips, as 16-bit records.
namespace views {

/// What stands where in the file. The place is height, width, left and top of the window.
enum class LayoutForm {
  place_first,  // place in records 1 to 4, the width of column k from 0 on in record 5 + k
  widths_first  // 0 in record 1, the width of column k from 1 on in record k + 1, then the place
};

/// Applies the file where it is longer than 10 bytes. Widths that no column can have are left out;
/// so is a window smaller than 1000 either way. Its place is taken as it stands: what room there is
/// shows only when the window does. A `widths_first` file of another number of columns is taken for
/// one of this grid's.
void ReadLayout(const base::ProgramDir& dir, std::string_view file, LayoutForm form,
                platform::Window& window, platform::Grid& grid);

/// Writes the file. The record of a value that doesn't fit keeps its bytes, as does what follows
/// the last record.
void WriteLayout(const base::ProgramDir& dir, std::string_view file, LayoutForm form,
                 const platform::Window& window, const platform::Grid& grid);

}  // namespace views

#pragma once

#include <span>
#include <string>

#include "base/program_dir.h"
#include "platform/platform.h"

namespace services {

/// Writes the user's guide into the directory "Manual" of the program: each file that is missing
/// there or isn't as it was shipped. Nothing else there is touched, a link is neither followed nor
/// replaced, and where writing fails what is there stays. Gives the directory as an address that
/// ends in "/" ("file:///.../Manual/").
[[nodiscard]] std::string EscribirManual(const base::ProgramDir& directory,
                                         std::span<const platform::ShippedFile> files);

}  // namespace services

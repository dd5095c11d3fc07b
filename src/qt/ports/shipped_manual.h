#pragma once

#include <vector>

#include "platform/platform.h"

namespace qt {

/// The files of the user's guide, as they are embedded in the executable.
[[nodiscard]] std::vector<platform::ShippedFile> ShippedManual();

}  // namespace qt

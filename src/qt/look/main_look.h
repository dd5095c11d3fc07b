#pragma once

#include "qt/ports/looks.h"
#include "shell/mdi.h"

namespace qt {

/// The main window: menu, market ticker, inner windows, status strip.
[[nodiscard]] Look MakeMainLook(shell::MDI& mdi, FrameClock& clock);

}  // namespace qt

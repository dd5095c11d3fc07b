#pragma once

#include "qt/ports/looks.h"
#include "views/tape.h"

namespace qt {

/// The tape of the session's trades.
[[nodiscard]] Look MakeTapeLook(views::Form2& window, FrameClock& clock);

}  // namespace qt

#pragma once

#include "charts/hot.h"
#include "qt/ports/looks.h"

namespace qt {

/// The overview: a board whose grid stands below the two charts and the balances, with Ctrl+I for
/// the instrument.
[[nodiscard]] Look MakeHotLook(charts::Hot& hot, FrameClock& clock);

}  // namespace qt

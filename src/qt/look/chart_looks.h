#pragma once

#include "charts/graficos.h"
#include "qt/ports/looks.h"

namespace qt {

/// A chart that fills its window.
[[nodiscard]] Look MakeChartLook(charts::Graficos& window, FrameClock& clock);
/// The dialog that asks for a moving average; nothing else can be done meanwhile.
[[nodiscard]] Look MakeAverageLook(charts::Medias& window, FrameClock& clock);

}  // namespace qt

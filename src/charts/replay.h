#pragma once

#include "charts/chart.h"
#include "charts/tick_files.h"

namespace charts {

/// Fills the series of that code with what the run has seen of it. A price at or below half of the
/// file's first is a bad tick and left out. Where the file has no record nothing is shown.
void ReplayTicks(const TickFiles& ticks, const store::Codigo& code, Chart& chart);

}  // namespace charts

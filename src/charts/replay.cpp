#include "charts/replay.h"

namespace charts {

void ReplayTicks(const TickFiles&, const store::Codigo&, Chart&) {}

}  // namespace charts

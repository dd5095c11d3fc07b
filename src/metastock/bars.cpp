#include "metastock/bars.h"

namespace metastock {

Bars::Bars(Stores& stores, const store::InstrumentStore& instruments, platform::Platform& platform)
    : stores_(stores), instruments_(instruments), platform_(platform) {}

void Bars::ActualizarBarras(std::int16_t /*slot*/) {}

void Bars::UpdateLiveIntraday(int /*entry*/, Bar& /*bar*/) {}

void Bars::UpdateHistoricIntraday(int /*entry*/, Bar& /*bar*/) {}

void Bars::UpdateDaily(int /*entry*/, const Bar& /*bar*/) {}

}  // namespace metastock

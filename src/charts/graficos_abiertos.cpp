#include "charts/graficos_abiertos.h"

namespace charts {

GraficosAbiertos::GraficosAbiertos(platform::Platform& platform,
                                   const store::InstrumentStore& store, const TickFiles& ticks)
    : Medias(platform), platform_(platform), store_(store), ticks_(ticks), abiertos_(platform) {}

void GraficosAbiertos::Abrir(std::int16_t) {
  (void)platform_;
  (void)store_;
  (void)ticks_;
}
bool GraficosAbiertos::Pedir() { return false; }
void GraficosAbiertos::GraficosVivo(std::int16_t) {}

}  // namespace charts

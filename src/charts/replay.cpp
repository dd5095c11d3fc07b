#include "charts/replay.h"

namespace charts {

void ReplayTicks(const TickFiles& ticks, const store::Codigo& code, Chart& chart) {
  const auto add = [&](const Tick& tick) {
    chart.AddReg(code, {.apertura = tick.Precio,
                        .cierre = tick.Precio,
                        .maximo = tick.Precio,
                        .minimo = tick.Precio,
                        .volumen = tick.Volumen,
                        .efectivo = static_cast<double>(tick.Volumen),
                        .fecha = tick.Fecha,
                        .hora = tick.Hora});
  };
  if (ticks.Leer(code, add) > 0) chart.ShowFeed(code);
}

}  // namespace charts

#include "charts/graficos.h"

namespace charts {

Graficos::Graficos(platform::Platform& platform, const store::InstrumentStore& store,
                   const TickFiles& ticks, Medias& medias)
    : Window(platform),
      Timer1(platform, 2000, false),
      store_(store),
      ticks_(ticks),
      medias_(medias) {
  (void)store_;
  (void)ticks_;
  (void)medias_;
}

void Graficos::Empezar(const store::Codigo&) {}
void Graficos::OnChartData(const store::Codigo&) {}
void Graficos::Gr1_Command(int) {}
void Graficos::Timer1_Timer() {}
void Graficos::Form_Resize() {}
void Graficos::Vivo(const store::Instrumento&) {}
void Graficos::OnLoad() {}
void Graficos::OnUnload() {}

}  // namespace charts

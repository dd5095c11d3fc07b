// What open charts add to the road of a quote, and how long one takes to open with a day behind it;
// logic only, on the in-memory platform.

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdint>
#include <string>

#include "base/bytes.h"
#include "charts/graficos_abiertos.h"
#include "demo/session_clock.h"
#include "support/memory_platform.h"

namespace {

constexpr int kWindows = 10, kCodes = 11, kTicks = 30'000;

/// HHMMSS so many seconds after nine o'clock.
float TimeOf(int second) { return static_cast<float>(demo::TimeOf(9 * 3600 + second)); }

class Desk {
 public:
  Desk() {
    for (int n = 0; n < kCodes; ++n) {
      store::Instrumento record;
      record.Codigo.assign("VAL" + std::to_string(n));
      record.Nombre.assign("COMPANIA " + std::to_string(n));
      record.Anterior = record.Apertura = record.Maximo = record.Minimo = 10;
      (void)store.GuardarMaestro(record);
    }
    store.MercadoFecha = 1000426;
    store.MercadoHora = 90000;
  }

  void Quote(std::int16_t slot) {
    ++quotes_;
    const float price = 10 + 0.01F * static_cast<float>(quotes_ % 50);
    store.GuardarCotizacion(slot, {.Maximo = 11,
                                   .Minimo = 9,
                                   .Ultimo = price,
                                   .Volumen = static_cast<float>(quotes_ % 10'000'000),
                                   .Efectivo = 1e6});
    // A quarter of a second apart.
    store.MercadoHora = TimeOf(static_cast<int>(quotes_ / 4 % 3600));
    desk.GraficosVivo(slot);
  }

  support::MemoryPlatform outside;
  support::TempDir temp;
  base::ProgramDir dir{temp.path()};
  store::InstrumentStore store;
  charts::TickFiles ticks{dir, store};
  std::int16_t FaseCierre = 0;
  charts::GraficosAbiertos desk{outside, store, ticks, FaseCierre};

 private:
  std::int64_t quotes_ = 0;
};

// A quote of the only instrument that ten charts show, and of one that none of ten shows.
void ChartQuote(benchmark::State& state) {
  const bool shown = state.range(0) != 0;
  Desk desk;
  for (int n = 0; n < kWindows; ++n) desk.desk.Abrir(static_cast<std::int16_t>(shown ? 1 : n + 1));
  const auto slot = static_cast<std::int16_t>(shown ? 1 : kCodes);
  for (auto _ : state) desk.Quote(slot);
  const bool drawn = desk.desk.at(0).Gr1.Count() > 0;
  if (drawn != shown) state.SkipWithError("a quote went astray");
}
BENCHMARK(ChartQuote)->ArgName("shown")->Arg(0)->Arg(1);

// One a second from nine o'clock.
std::string DayOfTicks() {
  std::string file;
  for (int n = 0; n < kTicks; ++n) {
    base::AppendField(file, 10 + 0.5F * std::sin(static_cast<float>(n) / 900));
    base::AppendField(file, static_cast<float>(n) * 100);
    base::AppendField(file, TimeOf(n));
    base::AppendField(file, 1000426.0F);
  }
  return file;
}

// To reach: 200 ms with all that the screen does.
void ChartOpen(benchmark::State& state) {
  Desk desk;
  desk.temp.Write("Ticks/" + charts::RutaTick(desk.store.Instrumentos(1).Codigo), DayOfTicks());
  for (auto _ : state) {
    desk.desk.Abrir(1);
    if (desk.desk.at(0).Gr1.Count() != kTicks) state.SkipWithError("ticks are missing");
    desk.desk.at(0).UserClose();
    desk.outside.RunPosted();
  }
}
BENCHMARK(ChartOpen)->Unit(benchmark::kMillisecond);

}  // namespace

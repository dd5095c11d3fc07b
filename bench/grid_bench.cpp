#include <benchmark/benchmark.h>
#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "store/instrument_store.h"
#include "store/update_pipeline.h"
#include "support/memory_platform.h"
#include "views/continuo.h"

// The board's share of the road of a quote, on the in-memory platform.
namespace {

class Market {
 public:
  explicit Market(int size) {
    pipeline.views.Continuo_negoti = [this](std::int16_t slot) { board.negoti(slot); };
    pipeline.views.Continuo_negotii = [this](std::int16_t slot) { board.negotii(slot); };
    board.Load();
    ticker_on.set_value(1);
    for (int n = 0; n < size; ++n) Master(n);
  }
  ~Market() {
    FaseCierre = 1;
    board.Unload();
  }

  void Master(int n) {
    store::Instrumento record;
    // Names arrive in another order than they are shown in.
    const int spread = n * 2731 % 5003;
    record.Codigo.assign(std::string{static_cast<char>('A' + n / 676),
                                     static_cast<char>('A' + n / 26 % 26),
                                     static_cast<char>('A' + n % 26)});
    record.Nombre.assign("COMPANIA " + std::to_string(10000 + spread));
    record.Anterior = 10;
    record.Ultimo = 10 + static_cast<float>(n % 500) / 100;
    record.Hora = 90000;
    record.Fecha = 1000426;
    store.MercadoFecha = record.Fecha;
    pipeline.RefrescarInstrumentoCarga(store.GuardarMaestro(record));
  }

  /// A trade: price, volume, cash, average, balance and time move.
  void Quote() {
    const auto slot =
        static_cast<std::int16_t>(1 + random() % static_cast<unsigned>(store.NumInstrumentos()));
    const store::Instrumento& now = store.Instrumentos(slot);
    const float last = now.Ultimo + (random() % 2 == 0 ? 0.01F : -0.01F);
    const float volume = now.Volumen + static_cast<float>(1 + random() % 900);
    store.MercadoHora = static_cast<float>(90000 + random() % 60);
    store.GuardarCotizacion(slot, {.Maximo = now.Maximo,
                                   .Minimo = now.Minimo,
                                   .Ultimo = last,
                                   .Volumen = volume,
                                   .Efectivo = now.Efectivo + static_cast<double>(last) * 450});
    pipeline.RefrescarInstrumento(slot);
  }

  void QuoteAll() {
    for (std::int16_t slot = 1; slot <= store.NumInstrumentos(); ++slot) {
      pipeline.RefrescarInstrumento(slot);
    }
  }

  support::MemoryPlatform outside;
  support::TempDir temp;
  base::ProgramDir dir{temp.path()};
  store::InstrumentStore store;
  platform::Ticker tape;
  platform::CheckBox ticker_on;
  store::UpdatePipeline pipeline{store, tape, ticker_on};
  views::ConfigVentanas config;
  std::int16_t FaseCierre = 0;
  views::Continuo board{{outside, dir, store, pipeline, config, FaseCierre}};
  std::minstd_rand random;
};

// Derived, carried through the pipeline, formatted, compared and flashed: 13 cells a quote.
void PipelineQuote(benchmark::State& state) {
  Market market(static_cast<int>(state.range(0)));
  market.QuoteAll();
  for (auto _ : state) market.Quote();
}
BENCHMARK(PipelineQuote)->Arg(200)->Arg(5000);

// 13 cells formatted and compared, none of them changed but the mark of the flash.
void RowUnchanged(benchmark::State& state) {
  Market market(1);
  for (auto _ : state) market.board.negoti(1);
}
BENCHMARK(RowUnchanged);

// All rows flash; a tick sees them lit, the next one puts them to rest.
void FlashTick5000(benchmark::State& state) {
  Market market(5000);
  for (auto _ : state) {
    state.PauseTiming();
    market.QuoteAll();
    state.ResumeTiming();
    market.board.Timer1_Timer();
    market.board.Timer1_Timer();
  }
}
BENCHMARK(FlashTick5000)->Unit(benchmark::kMicrosecond);

void IdleTick5000(benchmark::State& state) {
  Market market(5000);
  for (auto _ : state) market.board.Timer1_Timer();
}
BENCHMARK(IdleTick5000)->Unit(benchmark::kMicrosecond);

// An empty board takes the masters of a whole market, and the first quote of each.
void LoadMasters(benchmark::State& state) {
  for (auto _ : state) {
    Market market(static_cast<int>(state.range(0)));
    state.PauseTiming();
    const auto rows = market.board.G.rows();
    benchmark::DoNotOptimize(rows);
    state.ResumeTiming();
  }
}
BENCHMARK(LoadMasters)->Arg(200)->Arg(5000)->Unit(benchmark::kMillisecond);

void FirstQuotes5000(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto market = std::make_unique<Market>(5000);
    state.ResumeTiming();
    market->QuoteAll();
    state.PauseTiming();
    market.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(FirstQuotes5000)->Unit(benchmark::kMillisecond);

}  // namespace

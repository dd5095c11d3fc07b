#include <benchmark/benchmark.h>
#include <random>
#include <string>

#include <QElapsedTimer>

#include "../load/desk.h"
#include "application.h"

// The real board in its window: each update goes the whole road of a quote behind the wire, through
// the pipeline, 13 cells formatted, compared and flashed.
namespace {

constexpr int kBatch = 99, kTurnMs = 8;

class Board {
 public:
  explicit Board(int instruments) {
    desk.ShowBoard();
    for (int n = 0; n < instruments; ++n) AddMaster(n);
    load::RunFor(0.2);
  }

  /// A trade in any instrument from the n-th on, by name.
  void Quote(int from) {
    store::InstrumentStore& store = desk.terminal.store;
    const int span = store.NumInstrumentos() - from;
    const auto slot =
        static_cast<std::int16_t>(1 + from + static_cast<int>(random_() >> 1U) % span);
    const store::Instrumento& now = store.Instrumentos(slot);
    const float last = now.Ultimo + (random_() % 2 == 0 ? 0.01F : -0.01F);
    store.MercadoHora = static_cast<float>(90000 + random_() % 60);
    store.GuardarCotizacion(slot, {.Maximo = now.Maximo,
                                   .Minimo = now.Minimo,
                                   .Ultimo = last,
                                   .Volumen = now.Volumen + static_cast<float>(random_() % 900),
                                   .Efectivo = now.Efectivo + static_cast<double>(last) * 450});
    desk.terminal.pipeline.RefrescarInstrumento(slot);
  }

  load::Desk desk{0};

 private:
  void AddMaster(int n) {
    store::InstrumentStore& store = desk.terminal.store;
    store::Instrumento record;
    record.Codigo.assign(std::string{static_cast<char>('A' + n / 676),
                                     static_cast<char>('A' + n / 26 % 26),
                                     static_cast<char>('A' + n % 26)});
    record.Nombre.assign("COMPANIA " + std::to_string(10000 + n));
    record.Anterior = 10;
    record.Ultimo = 10 + static_cast<float>(n % 500) / 100;
    record.Hora = 90000;
    record.Fecha = 1000426;
    store.MercadoFecha = record.Fecha;
    desk.terminal.pipeline.RefrescarInstrumentoCarga(store.GuardarMaestro(record));
  }

  std::minstd_rand random_;
};

void RowUpdates(benchmark::State& state, int from) {
  MakeApplication();
  Board board(static_cast<int>(state.range(0)));
  const int paints = board.desk.paints();
  QElapsedTimer turn;
  turn.start();
  for (auto _ : state) {
    for (int i = 0; i < kBatch; ++i) board.Quote(from);
    if (turn.elapsed() >= kTurnMs) {
      QApplication::processEvents();
      turn.start();
    }
  }
  state.SetItemsProcessed(state.iterations() * kBatch);
  state.counters["paints"] =
      benchmark::Counter(board.desk.paints() - paints, benchmark::Counter::kIsRate);
}

// To reach: 1 million updates a second, 55 to 62 paints.
void BM_BoardUpdatesWhileShown(benchmark::State& state) { RowUpdates(state, 0); }
BENCHMARK(BM_BoardUpdatesWhileShown)->Arg(200)->Arg(5000)->UseRealTime()->MinTime(1.5);

// To reach: no paint, for none of the rows that move can be seen.
void BM_BoardUpdatesOffScreen(benchmark::State& state) { RowUpdates(state, 100); }
BENCHMARK(BM_BoardUpdatesOffScreen)->Arg(5000)->UseRealTime()->MinTime(1.5);

}  // namespace

#include <benchmark/benchmark.h>
#include <ctime>
#include <random>
#include <string>

#include <QDeadlineTimer>
#include <QTimer>

#include "../load/desk.h"
#include "application.h"
#include "demo/session_clock.h"
#include "qt/look/custom_plot.h"

// Real chart windows: how long one with a day behind it takes to come up, what drawing it costs,
// and what ten of them take while their instruments are quoted.
namespace {

constexpr int kDay = 30'000, kFirst = 9 * 3600, kSession = 8 * 3600;

float TimeOf(int second) { return static_cast<float>(demo::TimeOf(second)); }

class Charts {
 public:
  explicit Charts(int instruments) {
    desk.ShowBoard();
    for (int n = 0; n < instruments; ++n) {
      store::Instrumento record;
      record.Codigo.assign("VAL" + std::to_string(n));
      record.Nombre.assign("COMPANIA " + std::to_string(n));
      record.Anterior = record.Ultimo = record.Maximo = record.Minimo = 10;
      (void)store().GuardarMaestro(record);
    }
    store().MercadoFecha = 1000426;
    load::RunFor(0.2);
  }

  /// A trade at a price near the last one.
  void Change(std::int16_t slot, int second) {
    const store::Instrumento& now = store().Instrumentos(slot);
    const float last = now.Ultimo + 0.01F * static_cast<float>(static_cast<int>(random_() % 5) - 2);
    store().MercadoHora = TimeOf(second);
    store().GuardarCotizacion(slot,
                              {.Maximo = 11,
                               .Minimo = 9,
                               .Ultimo = last,
                               .Volumen = now.Volumen + static_cast<float>(1 + random_() % 100),
                               .Efectivo = 1e6});
  }
  void Quote(std::int16_t slot, int second) {
    Change(slot, second);
    desk.terminal.pipeline.RefrescarInstrumento(slot);
  }
  void WriteDay(std::int16_t slot) {
    for (int n = 0; n < kDay; ++n) {
      Change(slot, kFirst + n * kSession / kDay);
      desk.terminal.Ticks.TickAppend(slot);
    }
  }

  /// A chart whose drawing counts as a paint.
  QCustomPlot* Open(std::int16_t slot) {
    desk.terminal.Graficos.Abrir(slot);
    auto* plot = desk.WidgetOf(Last(), Last().Gr1)->findChild<QCustomPlot*>();
    plot->installEventFilter(&desk);
    return plot;
  }
  [[nodiscard]] charts::Graficos& Last() const {
    return desk.terminal.Graficos.at(desk.terminal.Graficos.size() - 1);
  }
  [[nodiscard]] store::InstrumentStore& store() { return desk.terminal.store; }

  load::Desk desk{0};

 private:
  std::minstd_rand random_;
};

double ThreadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// From the command to the painted window, and away with it.
void BM_ChartOpen(benchmark::State& state) {
  MakeApplication();
  Charts charts(1);
  charts.WriteDay(1);
  for (auto _ : state) {
    const int paints = charts.desk.paints();
    charts.Open(1);
    const QDeadlineTimer deadline(5000);
    while (charts.desk.paints() == paints && !deadline.hasExpired()) QApplication::processEvents();
    if (deadline.hasExpired() || charts.Last().Gr1.Count() != kDay) {
      state.SkipWithError("a chart that isn't painted, or without its day");
      break;
    }
    state.PauseTiming();
    charts.Last().UserClose();
    QApplication::processEvents();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_ChartOpen)->Unit(benchmark::kMillisecond);

// All of it drawn anew, with so many averages.
void BM_ChartReplot(benchmark::State& state) {
  MakeApplication();
  Charts charts(1);
  charts.WriteDay(1);
  QCustomPlot* plot = charts.Open(1);
  charts.Last().set_rect({0, 0, 13500, 8400});
  for (int n = 1; n <= state.range(0); ++n) charts.Last().Gr1.AddMedia(100 * n);
  load::RunFor(0.5);
  charts.Last().Gr1.set_visible(true);
  load::RunFor(0.5);
  for (auto _ : state) plot->replot(QCustomPlot::rpQueuedRefresh);
  state.SetLabel(std::to_string(plot->width()) + "x" + std::to_string(plot->height()));
}
BENCHMARK(BM_ChartReplot)->Arg(0)->Arg(2)->Unit(benchmark::kMillisecond);

// To reach: below 10 % of a core.
void BM_TenChartsLive(benchmark::State& state) {
  MakeApplication();
  constexpr int kCharts = 10, kColumns = 5, kQuotes = 200, kTurnMs = 50;
  Charts charts(kCharts);
  charts.desk.terminal.Continuo.set_state(platform::Window::State::minimized);
  int replots = 0;
  for (std::int16_t slot = 1; slot <= kCharts; ++slot) {
    QCustomPlot* plot = charts.Open(slot);
    QObject::connect(plot, &QCustomPlot::afterReplot, plot, [&replots] { ++replots; });
    // Side by side, in twips.
    constexpr int kWidth = 3800, kHeight = 4600;
    const int place = slot - 1;
    charts.Last().set_rect(
        {place % kColumns * kWidth, place / kColumns * kHeight, kWidth, kHeight});
    load::RunFor(0.1);
    for (int n = 0; n < state.range(0); ++n) {
      charts.Last().Gr1.AddReg(charts.store().Instrumentos(slot).Codigo,
                               {.cierre = 10 + 0.01F * static_cast<float>(n / 7 % 50),
                                .volumen = static_cast<float>(n),
                                .fecha = 1000426,
                                .hora = TimeOf(kFirst + n * kSession / kDay)});
    }
  }
  load::RunFor(5);  // they follow their new sizes
  int quotes = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    for (int n = 0; n < kQuotes * kTurnMs / 1000; ++n, ++quotes) {
      charts.Quote(static_cast<std::int16_t>(1 + quotes % kCharts),
                   kFirst + kSession + quotes / kQuotes);
    }
  });
  timer.start(kTurnMs);
  load::RunFor(1);
  quotes = replots = 0;
  const double before = ThreadSeconds();
  double seconds = 0;
  for (auto _ : state) {
    load::RunFor(1);
    seconds += 1;
  }
  state.counters["percent_of_core"] = 100 * (ThreadSeconds() - before) / seconds;
  state.counters["quotes_a_second"] = quotes / seconds;
  state.counters["replots_a_second"] = replots / seconds;
}
BENCHMARK(BM_TenChartsLive)->ArgName("records")->Arg(0)->Arg(kDay)->Iterations(8)->UseRealTime();

}  // namespace

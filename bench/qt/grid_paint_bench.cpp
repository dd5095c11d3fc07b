#include <benchmark/benchmark.h>
#include <memory>
#include <string>

#include <QApplication>
#include <QElapsedTimer>
#include <QStyledItemDelegate>
#include <QTableView>

#include "platform/grid.h"
#include "qt/look/binders.h"
#include "qt/look/grid_model.h"
#include "qt/look/grid_widget.h"
#include "qt/look/theme.h"
#include "qt/ports/frame_clock.h"

namespace {

constexpr QSize kBoard{1240, 820};
constexpr int kColumns = 14, kBatch = 99;

QApplication& Application() {
  static int argc = 1;
  static char name[] = "bench";
  static char* argv[] = {name, nullptr};
  static auto* application = [] {
    auto* made = new QApplication(argc, argv);
    qt::ApplyTheme(*made);
    return made;
  }();
  return *application;
}

void Write(platform::Grid& grid, platform::RowText& text, int row, int tick) {
  text.Clear();
  text.Add("INSTRUMENTO");
  for (int col = 1; col < kColumns; ++col) {
    std::string& cell = text.buffer();
    cell += std::to_string((row * 7 + tick + col) % 90 + 10);
    cell += '.';
    cell += std::to_string((row + tick * col) % 90 + 10);
    text.EndCell();
  }
  grid.set_row_text(row, text);
}

void Fill(platform::Grid& grid, int rows) {
  platform::RowText text;
  grid.set_cols(kColumns);
  grid.set_rows(rows + 1);
  grid.set_back_color(base::palette::kBlack);
  for (int col = 0; col < kColumns; ++col) {
    grid.set_text(0, col, "Columna");
    grid.set_width(col, 1230);
    grid.set_align(col, col == 0 ? platform::Align::left : platform::Align::right);
  }
  for (int row = 1; row <= rows; ++row) {
    Write(grid, text, row, 0);
    grid.set_row_colors(row, 0, row % 3 ? base::palette::kLightGreen : base::palette::kLightRed,
                        base::palette::kBlack);
  }
}

template <typename Refresh>
void Repaint(benchmark::State& state, QTableView& view, Refresh refresh) {
  view.resize(kBoard);
  view.show();
  QApplication::processEvents();
  refresh();
  for (auto _ : state) view.viewport()->repaint();
}

// The yardstick: the same model in Qt's own table with its own delegate.
void BM_FullRepaintStockDelegate(benchmark::State& state) {
  Application();
  platform::Grid grid;
  Fill(grid, 5000);
  qt::GridModel model(grid);
  QTableView view;
  view.setModel(&model);
  view.verticalHeader()->hide();
  view.verticalHeader()->setDefaultSectionSize(24);
  view.horizontalHeader()->setDefaultSectionSize(82);
  Repaint(state, view, [] {});
}
BENCHMARK(BM_FullRepaintStockDelegate)->Unit(benchmark::kMillisecond);

void BM_FullRepaint(benchmark::State& state) {
  Application();
  platform::Grid grid;
  Fill(grid, 5000);
  qt::GridWidget view(grid);
  Repaint(state, view, [&view] { view.Refresh(); });
}
BENCHMARK(BM_FullRepaint)->Unit(benchmark::kMillisecond);

/// Counts the paints of a widget.
class Paints : public QObject {
 public:
  int count = 0;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

// Batches of 99 row updates, formatted, compared and flashed, between turns of the event loop.
void BM_RowUpdatesWhileShown(benchmark::State& state) {
  Application();
  const int rows = static_cast<int>(state.range(0));
  platform::Grid grid;
  Fill(grid, rows);
  qt::FrameClock clock;
  qt::GridWidget view(grid);
  Paints paints;
  view.viewport()->installEventFilter(&paints);
  view.resize(kBoard);
  view.show();
  platform::RowText text;
  int row = 0, tick = 0;
  QElapsedTimer turn;
  turn.start();
  {
    qt::Binders binders(view, clock);
    binders.Bind(grid, view);
    for (auto _ : state) {
      ++tick;
      for (int i = 0; i < kBatch; ++i) {
        row = row % rows + 1;
        Write(grid, text, row, tick);
        grid.set_back(row, 1 + tick % (kColumns - 1),
                      tick % 2 ? base::palette::kGreen : base::palette::kRed);
      }
      if (turn.elapsed() >= 8) {
        QApplication::processEvents();
        turn.start();
      }
    }
  }
  state.SetItemsProcessed(state.iterations() * kBatch);
  state.counters["paints"] = benchmark::Counter(paints.count, benchmark::Counter::kIsRate);
}
BENCHMARK(BM_RowUpdatesWhileShown)->Arg(200)->Arg(5000)->UseRealTime()->MinTime(1.5);

}  // namespace

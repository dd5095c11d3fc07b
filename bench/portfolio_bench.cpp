// The portfolios on the in-memory platform: their summary of every five seconds, what the holdings
// add to the road of a quote, the positions made anew, and an operation that goes to the disk.

#include <benchmark/benchmark.h>
#include <cstdint>
#include <fcntl.h>
#include <map>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>

#include "base/masks.h"
#include "shell/terminal.h"
#include "support/memory_platform.h"

namespace {

using portfolios::FichaCartera;
using portfolios::Operacion;
using portfolios::PortfolioStore;

constexpr int kInstruments = store::InstrumentStore::kMaxInstrumentos;
constexpr int kOperations = PortfolioStore::kMaxOperaciones;

// Each name begins the next one, so the longest one in the box values all portfolios at once.
std::string NameOf(int portfolio) { return std::string(static_cast<std::size_t>(portfolio), 'M'); }

std::string CodeOf(int n) {
  return {static_cast<char>('A' + n / 676), static_cast<char>('A' + n / 26 % 26),
          static_cast<char>('A' + n % 26)};
}

// All over the table; none twice in a portfolio.
std::int16_t SlotOf(int operation) {
  return static_cast<std::int16_t>(1 + operation * 7919 % kInstruments);
}

Operacion MakeOperation(int n, int portfolios, int instruments) {
  Operacion record;
  record.Codigo = store::Codigo(CodeOf(SlotOf(n % instruments) - 1));
  record.Titulos = 100 + n;
  record.Precio = 9 + static_cast<float>(n % 200) / 100;
  record.CarteraId = static_cast<std::int16_t>(1 + n % portfolios);
  record.Sentido = Operacion::kCompra;
  return record;
}

/// The whole program with a full table of instruments and a journal of `operations`, dealt out to
/// `portfolios` and to `instruments`.
class Desk {
 public:
  Desk(int portfolios, int operations, int instruments = kOperations) : last_(portfolios) {
    std::string journal, cards;
    for (int n = 0; n < operations; ++n) {
      journal += MakeOperation(n, portfolios, instruments).Encode();
    }
    for (int p = 1; p <= portfolios; ++p) {
      FichaCartera card;
      card.Nombre.assign(NameOf(p));
      cards += card.Encode();
    }
    temp.Write("Operaciones.QRT", journal);
    temp.Write("Carteras.QRT", cards);
    terminal.Start();
    for (int n = 0; n < kInstruments; ++n) Master(n);
    Choose(last_);
  }

  /// Values portfolio `p` and those whose names begin its own.
  void Choose(int p) {
    terminal.MDI.Combo1.set_text(NameOf(p) + ' ');
    Value();
  }
  void Value() { terminal.MDI.Combo1.on_click(); }

  void Move(std::int16_t slot) {
    const store::Instrumento& now = terminal.store.Instrumentos(slot);
    up_ = !up_;
    terminal.store.GuardarCotizacion(slot, {.Maximo = 12,
                                            .Minimo = 9,
                                            .Ultimo = now.Ultimo + (up_ ? 0.01F : -0.01F),
                                            .Volumen = now.Volumen + 100,
                                            .Efectivo = now.Efectivo + 1025});
  }

  /// By the plainest loops there are: each portfolio, each position, each instrument.
  [[nodiscard]] double ValuePlainly() const {
    double value = 0;
    for (int p = 1; p <= last_; ++p) {
      for (int j = 1; j <= terminal.Carteras.NumPosiciones(p); ++j) {
        const Operacion& position = terminal.Carteras.Posiciones(p, j);
        for (std::int16_t i = 1; i <= kInstruments; ++i) {
          const store::Instrumento& instrument = terminal.store.Instrumentos(i);
          if (instrument.Codigo == position.Codigo) {
            value += static_cast<double>(instrument.Ultimo) * position.Titulos;
          }
        }
      }
    }
    return value;
  }
  [[nodiscard]] bool Right() const {
    return terminal.MDI.Text1.text() == base::masks::kWhole.Format(ValuePlainly());
  }

  support::MemoryPlatform outside;
  support::TempDir temp;
  shell::Terminal terminal{outside, base::ProgramDir(temp.path())};

 private:
  void Master(int n) {
    store::Instrumento record;
    record.Codigo = store::Codigo(CodeOf(n));
    record.Nombre.assign("COMPANIA " + CodeOf(n));
    record.Anterior = 10;
    record.Ultimo = record.Maximo = record.Minimo = 10.25F;
    record.Fecha = 1000426;
    terminal.store.GuardarMaestro(record);
  }

  int last_;
  bool up_ = false;
};

// To reach: 5 ms for 10 portfolios of 100 positions. The journal's 500 operations make 500
// positions at most, so 10 of 50 and 5 of 100 are the worst that there can be. One price moves, so
// that the boxes change.
void Summary(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)), kOperations);
  if (!desk.Right()) state.SkipWithError("a wrong value");
  for (auto _ : state) {
    desk.Move(SlotOf(0));
    desk.Value();
  }
}
BENCHMARK(Summary)->ArgName("portfolios")->Arg(10)->Arg(5)->Unit(benchmark::kMicrosecond);

// The same, and the rows of the holdings made anew each time: 50 or 100 of them.
void SummaryOfAnother(benchmark::State& state) {
  const int portfolios = static_cast<int>(state.range(0));
  Desk desk(portfolios, kOperations);
  if (desk.terminal.TCartera.G.rows() != 1 + kOperations / portfolios) {
    state.SkipWithError("other rows than positions");
  }
  int n = 0;
  for (auto _ : state) desk.Choose(portfolios - ++n % 2);
}
BENCHMARK(SummaryOfAnother)->ArgName("portfolios")->Arg(10)->Arg(5)->Unit(benchmark::kMicrosecond);

void SummaryPlain(benchmark::State& state) {
  const Desk desk(static_cast<int>(state.range(0)), kOperations);
  for (auto _ : state) benchmark::DoNotOptimize(desk.ValuePlainly());
}
BENCHMARK(SummaryPlain)->ArgName("portfolios")->Arg(10)->Arg(5)->Unit(benchmark::kMicrosecond);

// To reach: 2 us beside 100 rows, for an instrument that none of them holds.
void HoldingsQuote(benchmark::State& state) {
  constexpr int kRows = 100;
  const bool held = state.range(0) != 0;
  Desk desk(1, kRows, kRows);
  platform::Grid& grid = desk.terminal.TCartera.G;
  if (grid.rows() != 1 + kRows) state.SkipWithError("other rows than positions");
  int n = held ? 0 : kRows;  // the first hundred are held
  for (auto _ : state) {
    const std::int16_t slot = SlotOf(n);
    desk.Move(slot);
    desk.terminal.TCartera.negoti(slot);
    n = held ? (n + 1) % kRows : kRows + (n + 1 - kRows) % (kInstruments - kRows);
  }
}
BENCHMARK(HoldingsQuote)->ArgName("held")->Arg(0)->Arg(1);

// The rows of the holdings looked through for an instrument's name, as one writes that down.
void HoldingsScanPlain(benchmark::State& state) {
  constexpr int kRows = 100;
  Desk desk(1, kRows, kRows);
  const platform::Grid& grid = desk.terminal.TCartera.G;
  int n = kRows;
  for (auto _ : state) {
    const std::string name = desk.terminal.store.Instrumentos(SlotOf(n)).Nombre.utf8();
    for (int r = 1; r < grid.rows(); ++r) {
      benchmark::DoNotOptimize(grid.text(r, 0).find(name) == 0);
    }
    n = kRows + (n + 1 - kRows) % (kInstruments - kRows);
  }
}
BENCHMARK(HoldingsScanPlain);

// 500 operations that make 50 positions in each of 10 portfolios, 100 in 5, or 10 in one.
void Positions(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)), kOperations, static_cast<int>(state.range(1)));
  for (auto _ : state) desk.terminal.Carteras.RecalcularPosiciones();
}
BENCHMARK(Positions)
    ->ArgNames({"portfolios", "instruments"})
    ->Args({10, kOperations})
    ->Args({5, kOperations})
    ->Args({1, 10})
    ->Unit(benchmark::kMicrosecond);

// The same out of a map with portfolio and code as its key.
void PositionsMap(benchmark::State& state) {
  const Desk desk(static_cast<int>(state.range(0)), kOperations, static_cast<int>(state.range(1)));
  const PortfolioStore& book = desk.terminal.Carteras;
  for (auto _ : state) {
    std::map<std::pair<int, std::string>, std::pair<int, double>> positions;
    for (int n = 1; n <= book.NumOperaciones(); ++n) {
      const Operacion& operation = book.Operaciones(n);
      auto& [shares, price] =
          positions[{operation.CarteraId, std::string(operation.Codigo.bytes())}];
      const double cost =
          price * shares + static_cast<double>(operation.Precio) * operation.Titulos;
      shares += operation.Titulos;
      price = cost / shares;
    }
    benchmark::DoNotOptimize(positions);
  }
}
BENCHMARK(PositionsMap)
    ->ArgNames({"portfolios", "instruments"})
    ->Args({10, kOperations})
    ->Args({1, 10})
    ->Unit(benchmark::kMicrosecond);

// An operation recorded, the journal begun anew when it is full.
void RecordOperation(benchmark::State& state) {
  const Operacion record = MakeOperation(0, 1, 1);
  auto desk = std::make_unique<Desk>(1, 0);
  for (auto _ : state) {
    if (!desk->terminal.Carteras.AgregarOperacion(record)) state.SkipWithError("not recorded");
    if (desk->terminal.Carteras.NumOperaciones() < kOperations) continue;
    state.PauseTiming();
    desk = std::make_unique<Desk>(1, 0);
    state.ResumeTiming();
  }
  state.SetLabel(desk->temp.path());
}
BENCHMARK(RecordOperation)->Unit(benchmark::kMicrosecond)->UseRealTime();

// The same bytes put into a file by plain calls, left to the kernel or waited for.
void RecordPlain(benchmark::State& state) {
  const std::string bytes = MakeOperation(0, 1, 1).Encode();
  const support::TempDir temp;
  const std::string path = temp.Path("plain");
  for (auto _ : state) {
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    bool done = fd >= 0 && write(fd, bytes.data(), bytes.size()) == std::ssize(bytes);
    if (state.range(0) != 0) done = fsync(fd) == 0 && done;
    if (close(fd) != 0 || !done) state.SkipWithError("not written");
  }
}
BENCHMARK(RecordPlain)
    ->ArgName("fsync")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

}  // namespace

// What the spreadsheet link adds to the road of a quote, with a code in each row that it serves and
// the helper program at the other end of the port.

#include <benchmark/benchmark.h>
#include <cstdint>
#include <string>
#include <variant>

#include "base/masks.h"
#include "calc/mirror.h"
#include "spreadsheet/excel.h"
#include "support/fake_pipe.h"
#include "support/memory_platform.h"

namespace {

constexpr int kInstruments = 5000;
constexpr int kFirstRow = spreadsheet::CodeRows::kFirst;
constexpr int kOnSheet = spreadsheet::CodeRows::kLast - kFirstRow + 1;
constexpr int kQuotesOfABatch = 100;  // two batches a second, at 200 quotes a second

class Desk {
 public:
  Desk() {
    for (int n = 0; n < kInstruments; ++n) {
      store_.AgregarSinDatos(store::Codigo(CodeOf(n)), "COMPA\xD1IA");
    }
    excel_.ExcelAttach();
    std::string lines = "window\t1\nsheet\t1\n";
    for (int n = 0; n < kOnSheet; ++n) {
      lines += "row\t" + std::to_string(kFirstRow + n) + "\t1\t'" + CodeOf(n) + "\n";
    }
    pipe_.sent.clear();
    pipe_.on_data(lines + "attached\t1\t1\n");
    Batch();
  }

  /// Of the instruments `first` to `last` in turn, at another price each.
  void Quote(int first, int last) {
    at_ = at_ < first || at_ >= last ? first : at_ + 1;
    last_ = last_ > 11 ? 10 : last_ + 0.01F;
    const auto slot = static_cast<std::int16_t>(1 + at_);
    store_.GuardarCotizacion(slot, {12, 9, last_, ++volume_, 10.0 * static_cast<double>(volume_)});
    excel_.RefrescarFilas(slot);
  }

  /// Half a second passes, and the helper takes in what it is sent.
  void Batch() {
    outside_.avanzar(500);
    const std::string sent = pipe_.TakeSent();
    bytes_ += sent.size();
    if (sent.starts_with("write\t")) {
      pipe_.on_data("done\t" + sent.substr(6, sent.find('\t', 6) - 6) + "\n");
    }
  }

  [[nodiscard]] std::size_t bytes() const { return bytes_; }
  /// The sheet has the price that the store has.
  [[nodiscard]] bool Has(int n) const {
    const auto* number = std::get_if<double>(&sheet_.value(kFirstRow + n, 7));
    return number != nullptr && *number == base::AsWritten(store_.Instrumentos(1 + n).Ultimo);
  }

 private:
  static std::string CodeOf(int n) { return "C" + std::to_string(n); }

  support::MemoryPlatform outside_;
  support::FakePipe pipe_;
  calc::Mirror sheet_{outside_, pipe_};
  store::InstrumentStore store_;
  spreadsheet::Excel excel_{sheet_, store_};
  int at_ = 0;
  float last_ = 10, volume_ = 0;
  std::size_t bytes_ = 0;
};

// To reach: 1 us.
void SheetForeignQuote(benchmark::State& state) {
  Desk desk;
  const std::size_t before = desk.bytes();
  for (auto _ : state) desk.Quote(kOnSheet, kInstruments - 1);
  desk.Batch();
  if (desk.bytes() != before) state.SkipWithError("something was sent");
}
BENCHMARK(SheetForeignQuote);

// To reach: 5 us, whether the office takes in what it is sent or stands still.
void SheetOwnQuote(benchmark::State& state) {
  const bool still = state.range(0) != 0;
  Desk desk;
  const std::size_t before = desk.bytes();
  int quotes = 0;
  for (auto _ : state) {
    desk.Quote(0, kOnSheet - 1);
    if (!still && ++quotes % kQuotesOfABatch == 0) desk.Batch();
  }
  for (int n = 0; n < kOnSheet; ++n) desk.Quote(n, n);
  for (int n = 0; n < kOnSheet; ++n) {
    if (!desk.Has(n)) state.SkipWithError("a row without its price");
  }
  desk.Batch();
  if (desk.bytes() == before) state.SkipWithError("nothing was sent");
}
BENCHMARK(SheetOwnQuote)->ArgName("still")->Arg(0)->Arg(1);

}  // namespace

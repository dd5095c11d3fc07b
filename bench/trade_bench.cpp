// The road of one trade from the wire into tape and tickets, beside that of a quote.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <malloc.h>
#include <memory>
#include <string>
#include <vector>

#include "feed/market_decoder.h"
#include "store/instrument_store.h"
#include "store/update_pipeline.h"
#include "support/memory_platform.h"
#include "support/wire.h"
#include "views/continuo.h"
#include "views/tape.h"
#include "views/tickets.h"

namespace {

constexpr int kInstruments = 200;
constexpr int kBatch = 50;
constexpr int kDay = 100'000;  // trades

std::string Code(int n) {
  return {static_cast<char>('A' + n / 26), static_cast<char>('A' + n % 26), 'X'};
}

// A board, the tape, and tickets on the first instruments.
struct Desk {
  explicit Desk(int tickets) {
    pipeline.steps.tickets = [this](std::int16_t slot) { open.RefrescarTickets(slot); };
    pipeline.views.Continuo_negoti = [this](std::int16_t slot) { board.negoti(slot); };
    pipeline.views.Continuo_negotii = [this](std::int16_t slot) { board.negotii(slot); };
    decoder.steps.Negocio = [this](const store::Negocio& trade) { open.Negocio(trade); };
    decoder.steps.FinNegocios = [this] { open.FinNegocios(); };
    board.Show();
    tape.Show();
    for (int n = 0; n < kInstruments; ++n) {
      const std::string name = "COMPANIA " + Code(n);
      decoder.Proces(
          "99,1   " +
          support::MasterRecord({.code = Code(n), .name = name, .previous = 10, .last = 10.25F}));
    }
    for (int n = 1; n <= tickets; ++n) open.AbrirTicket(static_cast<std::int16_t>(n));
  }
  ~Desk() {
    FaseCierre = 1;
    tape.Unload();
    board.Unload();
  }

  support::MemoryPlatform outside;
  support::TempDir temp;
  base::ProgramDir dir{temp.path()};
  store::InstrumentStore store;
  platform::PictureBox picture;
  platform::Label label, time, date;
  platform::Ticker ticker, status;
  platform::CheckBox ticker_on;
  store::UpdatePipeline pipeline{store, ticker, ticker_on};
  views::ConfigVentanas config;
  std::int16_t FaseCierre = 0;
  views::Continuo board{{outside, dir, store, pipeline, config, FaseCierre}};
  views::Form2 tape{outside, FaseCierre};
  views::Tickets open{outside, store, pipeline, tape};
  feed::MarketDecoder decoder{store, pipeline, {picture, label, time, date, ticker, status}};
};

float Time(int n) {
  const int second = n / 4 % (8 * 3600);
  return static_cast<float>((9 + second / 3600) * 10000 + second / 60 % 60 * 100 + second % 60);
}

// Of the instruments 0 to `codes` - 1 in turn, from trade or quote `n` on.
std::string Trades(int n, int codes) {
  std::string batch = std::to_string(kBatch) + ",1:";
  for (int end = n + kBatch; n < end; ++n) {
    const std::string code = Code(n % codes);
    batch += support::TradeRecord({.side = n % 3 == 0 ? 'V' : 'C',
                                   .code = code,
                                   .time = Time(n),
                                   .shares = static_cast<std::int16_t>(100 + n % 900),
                                   .price = 10 + static_cast<float>(n % 500) / 100});
  }
  return batch;
}

std::string Quotes(int n, int codes) {
  std::string batch = std::to_string(kBatch) + ",2:";
  for (int end = n + kBatch; n < end; ++n) {
    const std::string code = Code(n % codes);
    const float last = 10 + static_cast<float>(n % 500) / 100;
    batch += support::QuoteRecord({.code = code,
                                   .high = 15,
                                   .low = 10,
                                   .last = last,
                                   .volume = static_cast<float>(1000 + n),
                                   .cash = 10.5 * static_cast<double>(1000 + n)});
  }
  return batch;
}

using Batches = std::vector<std::string>;

Batches DayOf(std::string (*make)(int, int), int codes) {
  Batches batches;
  for (int n = 0; n < kDay; n += kBatch) batches.push_back(make(n, codes));
  return batches;
}

// One record, with the same windows open. A new day begins with empty lists.
void Record(benchmark::State& state, std::string (*make)(int, int)) {
  const int tickets = static_cast<int>(state.range(0));
  const Batches batches = DayOf(make, tickets == 0 ? kInstruments : tickets);
  auto desk = std::make_unique<Desk>(tickets);
  std::size_t next = 0;
  for (auto _ : state) {
    desk->decoder.Proces(batches[next]);
    if (++next < batches.size()) continue;
    state.PauseTiming();
    next = 0;
    desk = std::make_unique<Desk>(tickets);
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kBatch);
}
BENCHMARK_CAPTURE(Record, trade, Trades)->ArgName("tickets")->Arg(0)->Arg(1)->Arg(10);
BENCHMARK_CAPTURE(Record, quote, Quotes)->ArgName("tickets")->Arg(0)->Arg(1)->Arg(10);

// Text of all rows but the heading.
std::size_t TextBytes(const platform::Grid& list) {
  std::size_t bytes = 0;
  for (int r = 1; r < list.rows(); ++r) {
    for (int c = 0; c < list.cols(); ++c) bytes += list.text(r, c).size();
  }
  return bytes;
}

std::size_t HeapBytes() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// A day of 100,000 trades: what its first, last and dearest 1,000 cost, and what a row costs beside
// its texts. With a ticket, all of them are its own.
void Day(benchmark::State& state) {
  using Clock = std::chrono::steady_clock;
  constexpr std::size_t kPart = 1000 / kBatch;
  const int tickets = static_cast<int>(state.range(0));
  const Batches batches = DayOf(Trades, tickets == 0 ? kInstruments : tickets);
  std::vector<double> parts(batches.size() / kPart, 1e9);
  double overhead = 0;
  for (auto _ : state) {
    Desk desk(tickets);
    const std::size_t before = HeapBytes();
    for (std::size_t n = 0; n < parts.size(); ++n) {
      const auto start = Clock::now();
      for (std::size_t i = 0; i < kPart; ++i) desk.decoder.Proces(batches[n * kPart + i]);
      const std::chrono::duration<double, std::micro> taken = Clock::now() - start;
      parts[n] = std::min(parts[n], taken.count());
    }
    std::size_t own = HeapBytes() - before - TextBytes(desk.tape.List1);
    for (const auto* ticket : desk.open.abiertos()) own -= TextBytes(ticket->List1);
    overhead = static_cast<double>(own) / (kDay * (tickets + 1));
  }
  state.counters["first_1000_us"] = parts.front();
  state.counters["last_1000_us"] = parts.back();
  state.counters["dearest_1000_us"] = *std::ranges::max_element(parts);
  state.counters["ratio"] = parts.back() / parts.front();
  state.counters["overhead_bytes_a_row"] = overhead;
}
BENCHMARK(Day)->ArgName("tickets")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace

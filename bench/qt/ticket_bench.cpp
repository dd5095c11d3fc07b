#include <benchmark/benchmark.h>
#include <random>
#include <string>

#include <QDeadlineTimer>
#include <QElapsedTimer>

#include "../load/desk.h"
#include "application.h"

// Ten real tickets on ten codes, all in sight, whose books move as fast as they can.
namespace {

constexpr int kTickets = 10, kBatch = 20, kTurnMs = 8;

class Tickets {
 public:
  explicit Tickets(int open) {
    desk.ShowBoard();
    for (int n = 0; n < open; ++n) Open(n);
    load::RunFor(0.2);
    int n = 0;
    for (views::Ticker2* ticket : desk.terminal.Tickets.abiertos()) {
      // Side by side, in twips.
      constexpr int kWidth = 4700, kHeight = 3400, kColumns = 4;
      ticket->set_rect({n % kColumns * kWidth, n / kColumns * kHeight, kWidth, kHeight});
      desk.Watch(*ticket, ticket->pc.front());
      ++n;
    }
    load::RunFor(0.2);
  }

  void Open(int n) {
    store::Instrumento record;
    record.Codigo = Code(n);
    record.Nombre.assign("COMPANIA " + std::to_string(n));
    record.Anterior = record.Ultimo = 10;
    record.Fecha = 1000426;
    const std::int16_t slot = desk.terminal.store.GuardarMaestro(record);
    desk.terminal.pipeline.RefrescarInstrumentoCarga(slot);
    desk.terminal.Tickets.AbrirTicket(slot);
  }

  /// Any ticket's book, its best price moved.
  void Book() {
    store::LibroOrdenes book;
    book.Codigo = Code(static_cast<int>(random_() >> 1U) % kTickets);
    const float middle = 10 + static_cast<float>(random_() % 500) / 100;
    for (std::size_t i = 0; i < 5; ++i) {
      const float away = 0.01F * static_cast<float>(i + 1);
      book.PrecioCompra[i] = middle - away;
      book.PrecioVenta[i] = middle + away;
      book.VolCompra[i] = static_cast<float>(1 + random_() % 90'000);
      book.VolVenta[i] = static_cast<float>(1 + random_() % 90'000);
    }
    store::InstrumentStore& store = desk.terminal.store;
    desk.terminal.Tickets.RefrescarLibro(store.GuardarLibro(book));
  }

  load::Desk desk{0};

 private:
  static store::Codigo Code(int n) { return store::Codigo("XX" + std::to_string(n)); }

  std::minstd_rand random_;
};

// To reach: at most 62 paints a second of the best price of each ticket.
void BM_TicketBooksWhileShown(benchmark::State& state) {
  MakeApplication();
  Tickets tickets(kTickets);
  const int paints = tickets.desk.paints();
  QElapsedTimer turn;
  turn.start();
  for (auto _ : state) {
    for (int i = 0; i < kBatch; ++i) tickets.Book();
    if (turn.elapsed() >= kTurnMs) {
      QApplication::processEvents();
      turn.start();
    }
  }
  state.SetItemsProcessed(state.iterations() * kBatch);
  state.counters["paints_a_ticket"] = benchmark::Counter(
      static_cast<double>(tickets.desk.paints() - paints) / kTickets, benchmark::Counter::kIsRate);
}
BENCHMARK(BM_TicketBooksWhileShown)->UseRealTime()->MinTime(1.5);

// From the double click to the painted window, and away with it.
void BM_TicketOpen(benchmark::State& state) {
  MakeApplication();
  Tickets tickets(0);
  for (auto _ : state) {
    tickets.Open(0);
    views::Ticker2* ticket = tickets.desk.terminal.Tickets.abiertos().back();
    const int paints = tickets.desk.paints();
    tickets.desk.Watch(*ticket, ticket->pc.front());
    const QDeadlineTimer deadline(5000);
    while (tickets.desk.paints() == paints && !deadline.hasExpired()) {
      QApplication::processEvents();
    }
    if (deadline.hasExpired()) state.SkipWithError("a ticket that isn't painted");
    state.PauseTiming();
    ticket->UserClose();
    QApplication::processEvents();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_TicketOpen)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

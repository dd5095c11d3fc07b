// What open tickets and defined alarms add to the road of a quote or a book, on the in-memory
// platform.

#include <benchmark/benchmark.h>
#include <cstdint>
#include <random>
#include <string>

#include "shell/terminal.h"
#include "support/memory_platform.h"

namespace {

constexpr int kInstruments = 200;
constexpr int kTickets = 10;

/// The whole program with a loaded board.
class Desk {
 public:
  explicit Desk(int tickets, int alarms = 0) : tickets_(tickets) {
    terminal.Start();
    for (int n = 0; n < kInstruments; ++n) Master(n);
    for (int slot = 1; slot <= tickets; ++slot) Open(static_cast<std::int16_t>(slot));
    for (int n = 0; n < alarms; ++n) DefineAlarm(n % kInstruments);
  }

  void Open(std::int16_t slot) { terminal.Tickets.AbrirTicket(slot); }

  /// A trade in any of the first `span` instruments.
  void Quote(int span) {
    const auto slot = static_cast<std::int16_t>(1 + Below(span));
    const store::Instrumento& now = terminal.store.Instrumentos(slot);
    const float last = now.Ultimo + (Below(2) == 0 ? 0.01F : -0.01F);
    terminal.store.GuardarCotizacion(slot,
                                     {.Maximo = now.Maximo,
                                      .Minimo = now.Minimo,
                                      .Ultimo = last,
                                      .Volumen = now.Volumen + static_cast<float>(1 + Below(900)),
                                      .Efectivo = now.Efectivo + static_cast<double>(last) * 450});
    terminal.pipeline.RefrescarInstrumento(slot);
  }

  /// Any ticket's book, with all its prices and volumes moved.
  void Book() {
    const int n = Below(tickets_);
    store::LibroOrdenes book;
    book.Codigo = store::Codigo(Code(n));
    const float middle = 10 + static_cast<float>(Below(500)) / 100;
    for (std::size_t i = 0; i < 5; ++i) {
      const float away = 0.01F * static_cast<float>(i + 1);
      book.PrecioCompra[i] = middle - away;
      book.PrecioVenta[i] = middle + away;
      book.VolCompra[i] = static_cast<float>(1 + Below(90'000));
      book.VolVenta[i] = static_cast<float>(1 + Below(90'000));
    }
    terminal.Tickets.RefrescarLibro(terminal.store.GuardarLibro(book));
  }

  support::MemoryPlatform outside;
  support::TempDir temp;
  shell::Terminal terminal{outside, base::ProgramDir(temp.path())};

 private:
  static std::string Code(int n) {
    return {
        static_cast<char>('A' + n / 26), static_cast<char>('A' + n % 26), 'X', ' ', ' ', ' ', ' '};
  }
  [[nodiscard]] int Below(int limit) { return static_cast<int>(random_() >> 1U) % limit; }

  void Master(int n) {
    store::Instrumento record;
    record.Codigo = store::Codigo(Code(n));
    record.Nombre.assign("COMPANIA " + Code(n));
    record.Anterior = 10;
    record.Ultimo = record.Maximo = record.Minimo = 10.25F;
    record.Fecha = 1000426;
    terminal.pipeline.RefrescarInstrumentoCarga(terminal.store.GuardarMaestro(record));
  }

  // One that is never met.
  void DefineAlarm(int n) {
    alarms::Alarma alarm;
    alarm.AlarmaCodigo = store::Codigo(Code(n));
    alarm.AlarmaValor = 1e9F;
    alarm.AlarmaTipo = alarms::AlarmTable::kPrecio;
    alarm.AlarmaCondicion = alarms::AlarmTable::kIgualOSuperior;
    (void)terminal.Alarmas.Agregar(alarm);
  }

  int tickets_;
  std::minstd_rand random_;
};

// To reach: 20 us. Ten tickets on ten codes; forty labels are written and compared.
void TicketBook(benchmark::State& state) {
  Desk desk(kTickets);
  for (int n = 0; n < 100 * kTickets; ++n) desk.Book();
  for (const views::Ticker2* ticket : desk.terminal.Tickets.abiertos()) {
    if (ticket->pv.back().caption().empty()) state.SkipWithError("a ticket without its book");
  }
  for (auto _ : state) desk.Book();
}
BENCHMARK(TicketBook);

// In any instrument, and in those that a ticket shows.
void TicketQuote(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  for (auto _ : state) desk.Quote(kInstruments);
}
BENCHMARK(TicketQuote)
    ->ArgNames({"tickets", "alarms"})
    ->Args({0, 0})
    ->Args({kTickets, 0})
    ->Args({0, 500})
    ->Args({kTickets, 500});

void TicketOwnQuote(benchmark::State& state) {
  Desk desk(kTickets);
  for (auto _ : state) desk.Quote(kTickets);
}
BENCHMARK(TicketOwnQuote);

// An opened ticket that has its quote, and closes again.
void TicketOpen(benchmark::State& state) {
  Desk desk(0);
  for (auto _ : state) {
    desk.Open(1);
    desk.terminal.Tickets.abiertos().back()->Unload();
    desk.outside.RunPosted();
  }
}
BENCHMARK(TicketOpen)->Unit(benchmark::kMicrosecond);

}  // namespace

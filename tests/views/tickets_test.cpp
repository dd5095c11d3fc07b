#include "views/tickets.h"

#include <optional>

#include "fixture.h"

namespace {

class Shop : public ViewTest {
 protected:
  Shop() {
    pipeline.steps.tickets = [this](std::int16_t slot) { tickets->RefrescarTickets(slot); };
    tickets->steps.EnviarTexto = [this](std::string_view text) {
      outside.desktop().log.push_back("sent " + std::string(text));
    };
  }

  void Open(std::initializer_list<int> slots) {
    for (const int slot : slots) tickets->AbrirTicket(static_cast<std::int16_t>(slot));
  }
  void Book(std::string_view code, float volume) {
    store::LibroOrdenes book;
    book.Codigo.assign(code);
    book.VolCompra[0] = volume;
    tickets->RefrescarLibro(store.GuardarLibro(book));
  }
  /// The first bought volume that each open ticket shows.
  std::string Volumes() {
    std::string text;
    for (const views::Ticker2* ticket : tickets->abiertos()) text += ticket->vc[0].caption() + "|";
    return text;
  }
  views::Ticker2& at(std::size_t index) { return *tickets->abiertos().at(index); }

  std::optional<views::Tickets> tickets{std::in_place, outside, store, pipeline, tape};
  const int tef = Know("TEF", "TELEF\xD3NICA"), rep = Know("REP", "REPSOL");
};

TEST_F(Shop, OpensATicketAndAsksForItsBook) {
  Open({tef});
  EXPECT_EQ(outside.desktop().log,
            (std::vector<std::string>{"shown TELEF\xC3\x93NICA", "sent P:TEF    "}));
  EXPECT_EQ(outside.windows.WithTag("TEF    "), &at(0));
  EXPECT_EQ(at(0).D.caption(), "0.00%");
  Open({0, -1, 3, 5001});
  EXPECT_EQ(tickets->abiertos().size(), 1U);
}

TEST_F(Shop, CarriesQuotesAndBooksToEveryTicketOfExactlyThatCode) {
  Open({tef, rep, tef});
  store.GuardarCotizacion(1, {.Maximo = 12, .Minimo = 9, .Ultimo = 11.5F, .Volumen = 300});
  pipeline.RefrescarInstrumento(1);
  Book("TEF", 1500);
  Book(" TEF", 7);
  Book("REP", 0);
  EXPECT_EQ(Volumes(), " 1,500| | 1,500|");
  for (const std::size_t i : {0U, 2U}) EXPECT_EQ(at(i).Ultimo.caption(), "11.50");
  EXPECT_EQ(at(1).Volumen.caption(), "");
  // A book that no ticket shows is there all the same, and in hand.
  EXPECT_EQ(store.NumLibros(), 3);
  tickets->RefrescarLibro(2);
  EXPECT_EQ(store.LibroScratch.Codigo.bytes(), " TEF   ");
  EXPECT_EQ(store.LibroScratch.VolCompra[0], 7);
}

TEST_F(Shop, ATicketThatIsClosedLeavesAtOnceAndLivesUntilTheEventLoopIsBack) {
  Open({tef, rep, tef});
  views::Ticker2& first = at(0);
  first.Label6.DoubleClick();
  outside.avanzar(20);
  first.Label6.on_click = [&] {
    first.UserClose();
    EXPECT_EQ(outside.windows.size(), 2U);
    Book("TEF", 5);
    pipeline.RefrescarInstrumento(1);
    EXPECT_EQ(first.vc[0].caption(), "");
  };
  first.Label6.Click();
  EXPECT_EQ(Volumes(), "| 5|");
  outside.avanzar(1000);

  for (views::Ticker2* ticket : tickets->abiertos()) {
    ticket->Label6.DoubleClick();
    ticket->Unload();
    ticket->AgregarNegocio({});
  }
  EXPECT_TRUE(tickets->abiertos().empty());
  outside.avanzar(1000);
  Open({tef});
  EXPECT_EQ(outside.windows.WithTag("TEF    "), &at(0));
}

TEST_F(Shop, EndsInAnyState) {
  Open({rep, rep, rep, rep});
  at(2).Label6.DoubleClick();
  outside.windows.ForEach([&](platform::Window& window) {
    if (&window != &at(0)) window.Unload();
  });
  outside.desktop().log.clear();
  // One is open still, three wait for an event loop that comes back too late.
  tickets.reset();
  EXPECT_EQ(outside.desktop().log, std::vector<std::string>{"closed REPSOL"});
  EXPECT_EQ(outside.windows.size(), 0U);
  outside.avanzar(1000);
}

}  // namespace

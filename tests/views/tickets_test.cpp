#include "views/tickets.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>

#include "support/memory_platform.h"

namespace {

using platform::Window;

class Shop : public testing::Test {
 protected:
  Shop() {
    pipeline.steps.tickets = [this](std::int16_t slot) { tickets->RefrescarTickets(slot); };
    tickets->steps.EnviarTexto = [this](std::string_view text) {
      outside.desktop().log.push_back("sent " + std::string(text));
    };
  }

  std::int16_t Load(std::string_view code, std::string_view name, float last = 10) {
    store::Instrumento record;
    record.Codigo.assign(code);
    record.Nombre.assign(name);
    record.Ultimo = last;
    return store.GuardarMaestro(record);
  }
  void Book(std::string_view code, float volume) {
    store::LibroOrdenes book;
    book.Codigo.assign(code);
    book.VolCompra[0] = volume;
    tickets->RefrescarLibro(store.GuardarLibro(book));
  }
  views::Ticker2& at(std::size_t index) { return *tickets->abiertos().at(index); }

  support::MemoryPlatform outside;
  store::InstrumentStore store;
  platform::Ticker strip;
  platform::CheckBox ticker_on;
  store::UpdatePipeline pipeline{store, strip, ticker_on};
  std::int16_t FaseCierre = 0;
  views::Form2 tape{outside, FaseCierre};
  std::optional<views::Tickets> tickets{std::in_place, outside, store, pipeline, tape};
};

TEST_F(Shop, OpensATicketAndAsksForItsBook) {
  tickets->AbrirTicket(Load("TEF", "TELEF\xD3NICA"));
  EXPECT_EQ(outside.desktop().log,
            (std::vector<std::string>{"shown TELEF\xC3\x93NICA", "sent P:TEF    "}));
  EXPECT_EQ(outside.windows.WithTag("TEF    "), &at(0));
  EXPECT_EQ(at(0).caption(), "TELEF\xC3\x93NICA");
  EXPECT_EQ(at(0).D.caption(), "0.00%");
  for (const int nobody : {0, -1, 2, 5001}) tickets->AbrirTicket(static_cast<std::int16_t>(nobody));
  EXPECT_EQ(tickets->abiertos().size(), 1U);
}

TEST_F(Shop, CarriesQuotesAndBooksToEveryTicketOfExactlyThatCode) {
  const std::int16_t tef = Load("TEF", "TELEFONICA");
  const std::int16_t rep = Load("REP", "REPSOL");
  for (const std::int16_t slot : {tef, rep, tef}) tickets->AbrirTicket(slot);
  store.GuardarCotizacion(tef, {.Maximo = 12, .Minimo = 9, .Ultimo = 11.5F, .Volumen = 300});
  pipeline.RefrescarInstrumento(tef);
  Book("TEF", 1500);
  Book(" TEF", 7);
  Book("REP", 0);
  for (const std::size_t i : {0U, 2U}) {
    EXPECT_EQ(at(i).Ultimo.caption(), "11.50");
    EXPECT_EQ(at(i).vc[0].caption(), " 1,500");
  }
  EXPECT_EQ(at(1).Volumen.caption(), "");
  EXPECT_EQ(at(1).vc[0].caption(), " ");
  // A book that no ticket shows is there all the same, and in hand.
  EXPECT_EQ(store.NumLibros(), 3);
  tickets->RefrescarLibro(2);
  EXPECT_EQ(store.LibroScratch.Codigo.bytes(), " TEF   ");
  EXPECT_EQ(store.LibroScratch.VolCompra[0], 7);
}

TEST_F(Shop, ATicketThatIsClosedLeavesAtOnceAndLivesUntilTheEventLoopIsBack) {
  const std::int16_t tef = Load("TEF", "TELEFONICA");
  const std::int16_t rep = Load("REP", "REPSOL");
  for (const std::int16_t slot : {tef, rep, tef}) tickets->AbrirTicket(slot);
  views::Ticker2& first = at(0);
  first.Label6.DoubleClick();
  outside.avanzar(20);
  first.Label6.on_click = [&] {
    first.UserClose();
    EXPECT_EQ(tickets->abiertos().size(), 2U);
    EXPECT_EQ(outside.windows.size(), 2U);
    Book("TEF", 5);
    pipeline.RefrescarInstrumento(tef);
    EXPECT_EQ(first.vc[0].caption(), "");
  };
  first.Label6.Click();
  EXPECT_EQ(at(0).vc[0].caption(), "");
  EXPECT_EQ(at(1).vc[0].caption(), " 5");
  outside.avanzar(1000);

  for (views::Ticker2* ticket : tickets->abiertos()) {
    ticket->Label6.DoubleClick();
    ticket->Unload();
    ticket->AgregarNegocio({});
  }
  EXPECT_TRUE(tickets->abiertos().empty());
  outside.avanzar(1000);
  tickets->AbrirTicket(tef);
  EXPECT_EQ(outside.windows.WithTag("TEF    "), &at(0));
}

TEST_F(Shop, EndsInAnyState) {
  const std::int16_t tef = Load("TEF", "TELEFONICA");
  for (int i = 0; i < 4; ++i) tickets->AbrirTicket(tef);
  at(2).Label6.DoubleClick();
  outside.windows.ForEach([&](Window& window) {
    if (&window != &at(0)) window.Unload();
  });
  EXPECT_EQ(outside.windows.size(), 1U);
  outside.desktop().log.clear();
  // One is open still, three wait for an event loop that comes back too late.
  tickets.reset();
  EXPECT_EQ(outside.desktop().log, std::vector<std::string>{"closed TELEFONICA"});
  EXPECT_EQ(outside.windows.size(), 0U);
  outside.avanzar(1000);
}

}  // namespace

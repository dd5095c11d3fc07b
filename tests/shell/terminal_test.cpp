#include <algorithm>

#include "demo/feed.h"
#include "terminal_fixture.h"

namespace {

using platform::Picture;
using support::Frame;
namespace palette = base::palette;

/// Its feed socket is joined to an embedded market.
class LiveTerminalTest : public TerminalTest {
 protected:
  /// Lets `ms` pass on both sides of the wire.
  void Run(int ms) {
    for (int passed = 0; passed < ms; passed += 100) {
      market.Receive(connection, std::exchange(feed().sent, {}));
      market.Advance(100);
      feed().Arrive(market.TakeOutput(connection));
      outside.avanzar(100);
    }
  }

  demo::Feed market{demo::FeedOptions{}};
  int connection = market.Connect();
};

TEST_F(LiveTerminalTest, ShowsTheMarketThatTheServerSends) {
  Start();
  LogIn();
  terminal->MDI.Check2.set_value(1);
  Run(25000);  // past the opening
  EXPECT_EQ(terminal->MDI.Label2.caption(),
            "Instrumentos: " + std::to_string(terminal->store.NumInstrumentos()));
  EXPECT_TRUE(terminal->Conecta.SesionLista());
  EXPECT_EQ(terminal->MDI.LT.caption().size() + terminal->MDI.LF.caption().size(), 18U);
  EXPECT_TRUE(terminal->MDI.Picture1.visible());
  EXPECT_EQ(
      std::ranges::count(terminal->MDI.Tickctl1.items(), "I IB   ", &platform::TickerItem::key), 1);

  EXPECT_FALSE(terminal->Continuo.visible());
  EXPECT_GT(terminal->Continuo.G.rows(), 100);
}

TEST_F(LiveTerminalTest, EveryViewAndChartTakesItsPartOfTheMarket) {
  Start();
  auto& t = *terminal;
  LogIn();
  t.Hot.Show();
  Run(22000);
  outside.boxes.line = "bvl";
  PressTool(66);
  Run(3000);
  t.Graficos.Abrir(t.store.Buscar("I IB"));
  const charts::Chart& chart = t.Graficos.at(0).Gr1;
  const std::size_t replayed = chart.Count();
  Run(20000);
  const std::tuple<const platform::Window*, const platform::Grid&, int> views[] = {
      {&t.Indices, t.Indices.G, 10},   {&t.Estadisticas, t.Estadisticas.G, 8},
      {&t.Futuros, t.Futuros.G, 6},    {&t.Divisas, t.Divisas.G, 9},
      {&t.Opciones, t.Opciones.G, 20},
  };
  for (const auto& [window, grid, rows] : views) {
    EXPECT_GE(grid.rows() - 1, rows) << window->caption();
    for (int row = 1; row < grid.rows(); ++row) EXPECT_NE(grid.text(row, 0), "") << row;
  }
  EXPECT_GT(replayed, 0U);
  EXPECT_GT(chart.Count(), replayed);
  EXPECT_TRUE(t.Graficos.at(0).caption().starts_with("IBEX 35")) << t.Graficos.at(0).caption();
  EXPECT_GT(dir.Read("Ticks/I IB   .TCK").size(), 16U);
  for (const platform::Label* figure : {&t.Hot.LSC, &t.Hot.LSV, &t.Hot.Label6, &t.Hot.Label8}) {
    EXPECT_NE(figure->caption(), "");
  }
  EXPECT_GT(t.Hot.Gr1.Count(2), 0U);
}

TEST_F(TerminalTest, StartsWithTheLoginWindowInFrontOfAnEmptyBoard) {
  dir.Write("Ticks/ALD    .TCK", "ticks of an earlier run");
  Start();
  EXPECT_FALSE(dir.Has("Ticks/ALD    .TCK"));
  EXPECT_TRUE(dir.Has("Ticks"));
  EXPECT_EQ(outside.desktop().log.back(), "shown Conecta");
  EXPECT_EQ(outside.desktop().focus, &terminal->Conecta.Text1);
  EXPECT_EQ(&outside.windows.at(0), &terminal->MDI);
  const std::pair<platform::Window*, bool> at_start[] = {
      {&terminal->Continuo, true}, {&terminal->TCartera, true},
      {&terminal->Conecta, true},  {&terminal->FormAlarm, true},
      {&terminal->Form2, false},   {&terminal->ListAlarm, false},
      {&terminal->APrecio, false}, {&terminal->Cartera, false},
      {&terminal->Detalle, false}, {&terminal->Operar_Cartera, false},
      {&terminal->Meta, true},     {&terminal->Form1, false}};
  for (const auto& [window, loaded] : at_start) {
    EXPECT_EQ(window->loaded(), loaded) << window->caption();
  }
  EXPECT_FALSE(terminal->Continuo.visible() || terminal->TCartera.visible() ||
               terminal->Meta.visible());
  EXPECT_TRUE(terminal->MDI.Tickctl1.scrolling());
  EXPECT_TRUE(terminal->MDI.Tickctl2.scrolling());
  EXPECT_FLOAT_EQ(terminal->Continuo.G.font_size(), 7.0F);
}

TEST_F(TerminalTest, TakesTheLookOfBoardAndHoldingsFromItsFile) {
  const std::string record = support::I32(1) + support::I32(0x00112233) + support::I32(4) +
                             support::I32(14) + support::Pad("Roboto", 30) + support::I16(3) +
                             support::F32(11.5F);
  dir.Write("Colores.QUO", record);
  Start();
  for (const auto* grid : {&terminal->Continuo.G, &terminal->TCartera.G}) {
    EXPECT_EQ(grid->back_color(), 1);
    EXPECT_FLOAT_EQ(grid->font_size(), 11.5F);
  }
}

TEST_F(TerminalTest, CarriesWhatArrivesToBoardTicketsTapeAndAlarms) {
  dir.Write("Al.Set", "1\n\"ALD\"\n\"vender\"\n11\n11\n1\n1\n");
  Start();
  LogIn("ALD");
  terminal->Tickets.AbrirTicket(1);
  auto& ticket = *terminal->Tickets.abiertos().at(0);
  EXPECT_EQ(feed().writes.back(), support::Plain("P:ALD    "));
  feed().Arrive(Frame("01,2:" + support::QuoteRecord({.code = "ALD", .last = 12})) +
                Frame("01,3:" + support::BookRecord("ALD", 3)) +
                Frame("01,1:" + support::TradeRecord({.code = "ALD"})));
  EXPECT_EQ(base::Trim(ticket.Ultimo.caption()), "12");
  const auto& grid = terminal->Continuo.G;
  EXPECT_NE(grid.back(1, grid.cols() - 1), grid.back_color());  // the row flashes
  EXPECT_NE(ticket.Label5.caption(), "");
  EXPECT_EQ(ticket.List1.rows(), 2);
  EXPECT_EQ(terminal->ListAlarm.List1.items().size(), 1U);
  terminal->FormAlarm.Hide();
  terminal->ListAlarm.Command1_Click();
  EXPECT_TRUE(terminal->FormAlarm.visible());
  terminal->ListAlarm.Hide();
  terminal->FormAlarm.Command9_Click();
  EXPECT_TRUE(terminal->ListAlarm.visible());
  EXPECT_TRUE(terminal->Form2.loaded());
  EXPECT_FALSE(terminal->Form2.visible());
  EXPECT_EQ(terminal->Form2.List1.rows(), 2);
}

TEST_F(TerminalTest, PortfoliosOutliveItAndAreValuedOnceTheMarketHasCome) {
  Start();
  LogIn("ALD");
  PressTool(40);
  auto& dialog = terminal->Cartera;
  for (auto* text : {&dialog.Text1, &dialog.Text2, &dialog.Text3}) text->set_text("Ahorro");
  dialog.Text4.set_text("1");
  dialog.Command1.Click();
  EXPECT_EQ(terminal->MDI.Combo1.items(), std::vector<std::string>{"Ahorro "});
  terminal->MDI.Command2.Click();
  auto& order = terminal->Operar_Cartera;
  order.Text2.set_text("100");
  order.Text3.set_text("ald");
  order.Text4.set_text("8");
  order.Command1.Click();

  Start();
  const auto strip = [this] {
    const auto& mdi = terminal->MDI;
    return mdi.Combo1.text() + mdi.Text1.text() + " " + mdi.Text2.text() + " " + mdi.Text3.text();
  };
  LogIn();
  outside.avanzar(10000);
  EXPECT_EQ(strip(), "  ");
  LogIn("ALD");
  outside.avanzar(5000);
  EXPECT_EQ(strip(), "Ahorro 1,000 25.00% 200");

  const auto& grid = terminal->TCartera.G;
  feed().Arrive(Frame("01,2:" + support::QuoteRecord({.code = "ALD", .last = 12})));
  ASSERT_EQ(grid.rows(), 2);
  EXPECT_EQ(base::Trim(grid.text(1, 0)), "ACME");
  EXPECT_EQ(grid.text(1, grid.cols() - 2), "400.00");
  EXPECT_EQ(strip(), "Ahorro 1,000 25.00% 200");
  feed().PeerClose();
  outside.avanzar(5000);
  EXPECT_EQ(strip(), "Ahorro 1,200 50.00% 400");
}

TEST_F(TerminalTest, TheSessionLightAsksBeforeItConnectsOrDisconnects) {
  Start();
  terminal->Conecta.Hide();
  for (const bool answer : {false, true}) {
    outside.boxes.answer = answer;
    terminal->MDI.Picture2.Click();
    EXPECT_EQ(terminal->Conecta.visible(), answer);
  }
  LogIn();
  terminal->MDI.Picture2.Click();
  EXPECT_EQ(outside.boxes.questions.back(), "¿Desea Desconectarse?");
  EXPECT_EQ(terminal->MDI.Picture2.picture(), Picture::closed);
  outside.avanzar(20000);
  EXPECT_TRUE(terminal->Conecta.cerrado());
}

TEST_F(TerminalTest, TheStripGoesBackToRestAfterASecond) {
  Start();
  LogIn();
  feed().Arrive("ST");
  EXPECT_EQ(terminal->MDI.Label2.back(), palette::kRed);
  EXPECT_EQ(terminal->MDI.Picture2.picture(), Picture::receiving);
  outside.avanzar(1000);
  EXPECT_EQ(terminal->MDI.Label2.back(), palette::kBlack);
  EXPECT_EQ(terminal->MDI.Picture2.picture(), Picture::connected);
}

TEST_F(TerminalTest, TheStripFollowsTheMaximisedWindow) {
  Start();
  auto& mdi = terminal->MDI;
  mdi.Placed({0, 0, 15000, 9000}, platform::Window::State::normal, 15000, 9000);
  EXPECT_NE(mdi.Tickctl1.rect().width, 15000 - 650);
  mdi.Placed({0, 0, 20000, 9000}, platform::Window::State::maximized, 20000, 9000);
  EXPECT_EQ(mdi.Tickctl1.rect().width, 20000 - 650);
  EXPECT_EQ(mdi.Tickctl2.rect().width, 20000 - 400);
  EXPECT_EQ(mdi.Picture3.rect().width, 20000 - 300);
}

}  // namespace

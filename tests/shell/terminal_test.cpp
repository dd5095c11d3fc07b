#include <algorithm>

#include "terminal_fixture.h"

namespace {

using platform::Picture;
namespace palette = base::palette;

class LiveTerminalTest : public TerminalTest {
 protected:
  LiveTerminalTest() : market(demo::FeedOptions{}) { connection = market.Connect(); }
  void Run(int ms) { TerminalTest::Run(market, connection, ms); }

  demo::Feed market;
  int connection = 0;
};

TEST_F(LiveTerminalTest, ShowsTheMarketThatTheServerSends) {
  Start();
  LogIn();
  EXPECT_EQ(feed().sent.substr(0, 20), "ID:invitad.secreto\xFF\xFE");
  Run(25000);  // past the opening

  const int count = terminal->store.NumInstrumentos();
  EXPECT_GT(count, 150);
  EXPECT_EQ(terminal->MDI.Label2.caption(), "Instrumentos: " + std::to_string(count));
  EXPECT_TRUE(terminal->Conecta.SesionLista());
  EXPECT_EQ(terminal->MDI.LT.caption().size(), 8U);
  EXPECT_EQ(terminal->MDI.LF.caption().size(), 10U);

  // The hidden board has a row for every share, in the order of their names.
  const auto& grid = terminal->Continuo.G;
  EXPECT_FALSE(terminal->Continuo.visible());
  EXPECT_GT(grid.rows(), 100);
  for (int row = 2; row < grid.rows(); ++row) {
    EXPECT_LE(base::UpperUtf8(grid.text(row - 1, 0)), base::UpperUtf8(grid.text(row, 0)));
  }

  // Somewhere a cell flashes, and a quiet market lets it go dark again.
  const auto lit = [&grid] {
    int cells = 0;
    for (int row = 1; row < grid.rows(); ++row) {
      for (int col = 1; col < grid.cols(); ++col) {
        cells += grid.back(row, col) != grid.back_color() ? 1 : 0;
      }
    }
    return cells;
  };
  EXPECT_GT(lit(), 0);
  outside.avanzar(4000);
  EXPECT_EQ(lit(), 0);
}

TEST_F(LiveTerminalTest, RunsTheIndicesOverTheTapeOnlyWhileItIsOn) {
  Start();
  LogIn();
  const auto keyed = [this](std::string_view key) {
    const auto& items = terminal->MDI.Tickctl1.items();
    return std::count_if(items.begin(), items.end(),
                         [&](const auto& item) { return item.key == key; });
  };
  Run(8000);
  EXPECT_EQ(keyed("I IB   "), 0);
  EXPECT_FALSE(terminal->MDI.Picture1.visible());

  terminal->MDI.Check2.set_value(1);
  EXPECT_TRUE(terminal->MDI.Picture1.visible());
  Run(20000);
  EXPECT_EQ(keyed("I IB   "), 1);
}

TEST_F(LiveTerminalTest, ComesBackByItselfWithinFiveSecondsOfTheServersReturn) {
  Start();
  LogIn();
  Run(3000);
  feed().PeerClose();
  EXPECT_EQ(terminal->MDI.Picture2.picture(), Picture::closed);
  outside.avanzar(5000);
  EXPECT_EQ(feed().state(), platform::Socket::State::connecting);
  feed().Fail("Conexión rechazada");
  ASSERT_EQ(outside.boxes.messages.size(), 1U);
  EXPECT_NE(outside.boxes.messages[0].find("rechazada"), std::string::npos);

  outside.avanzar(5000);
  feed().Accept();
  EXPECT_EQ(terminal->MDI.Picture2.picture(), Picture::connected);
  const auto& items = terminal->MDI.Tickctl2.items();
  EXPECT_EQ(std::count_if(items.begin(), items.end(),
                          [](const auto& item) { return item.text == "Conectado "; }),
            1);
}

TEST_F(TerminalTest, StartsWithTheLoginWindowInFrontOfAnEmptyBoard) {
  dir.Write("Ticks/ALD    .TCK", "ticks of an earlier run");
  Start();
  EXPECT_FALSE(dir.Has("Ticks/ALD    .TCK"));
  EXPECT_TRUE(dir.Has("Ticks"));
  const auto& log = outside.desktop().log;
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log.back(), "shown Conecta");
  EXPECT_EQ(outside.desktop().focus, &terminal->Conecta.Text1);
  EXPECT_EQ(&outside.windows.at(0), &terminal->MDI);
  EXPECT_FALSE(terminal->Continuo.visible());
  EXPECT_EQ(terminal->MDI.Tickctl2.items().size(), 3U);
  EXPECT_EQ(terminal->MDI.Picture2.picture(), Picture::closed);
  EXPECT_EQ(terminal->Continuo.G.back_color(), palette::kBlack);
  EXPECT_FLOAT_EQ(terminal->Continuo.G.font_size(), 7.0F);
}

TEST_F(TerminalTest, LoadsAWindowUnseenWhenItIsFirstTouched) {
  Start();
  const std::vector<std::pair<platform::Window*, bool>> at_start{
      {&terminal->Continuo, true}, {&terminal->Conecta, true},    {&terminal->FormAlarm, true},
      {&terminal->Form2, false},   {&terminal->ListAlarm, false}, {&terminal->APrecio, false}};
  for (const auto& [window, loaded] : at_start) {
    EXPECT_EQ(window->loaded(), loaded) << window->caption();
  }
  LogIn("ALD");
  feed().Arrive(support::Frame("01,1:" + support::TradeRecord({.code = "ALD"})));
  EXPECT_TRUE(terminal->Form2.loaded());
  EXPECT_FALSE(terminal->Form2.visible());
  EXPECT_EQ(terminal->Form2.List1.rows(), 2);
}

TEST_F(TerminalTest, TakesTheBoardsLookFromItsFile) {
  std::string record = support::I32(1) + support::I32(0x00112233) + support::I32(4) +
                       support::I32(14) + support::Pad("Roboto", 30) + support::I16(3) +
                       support::F32(11.5F);
  std::string file;
  for (int i = 0; i < 5; ++i) file += record;
  dir.Write("Colores.QUO", file);
  Start();
  const auto& grid = terminal->Continuo.G;
  EXPECT_EQ(grid.back_color(), 1);
  EXPECT_EQ(grid.fore_color(), 14);
  EXPECT_EQ(grid.grid_lines(), 3);
  EXPECT_EQ(grid.font_name(), "Roboto");
  EXPECT_FLOAT_EQ(grid.font_size(), 11.5F);
}

TEST_F(TerminalTest, AnyColourFileLeavesAUsableLook) {
  struct Case {
    std::string file;
    float size;
  };
  std::string wild(5 * 52, '\xFF');  // a NaN for every size
  for (const auto& [file, size] :
       {Case{"", 7.0F}, Case{"0123456789", 7.0F}, Case{std::string(5 * 52, '\0'), 7.0F},
        Case{wild, 7.0F}, Case{std::string(30, '\x01'), 7.0F}}) {
    dir.Write("Colores.QUO", file);
    Start();
    EXPECT_FLOAT_EQ(terminal->Continuo.G.font_size(), size);
    EXPECT_LE(terminal->Continuo.G.grid_lines(), 11);
    terminal.reset();
  }
}

TEST_F(TerminalTest, TheSessionLightAsksBeforeItConnectsOrDisconnects) {
  Start();
  terminal->Conecta.Hide();
  outside.boxes.answer = false;
  terminal->MDI.Picture2.Click();
  EXPECT_FALSE(terminal->Conecta.visible());
  outside.boxes.answer = true;
  terminal->MDI.Picture2.Click();
  EXPECT_TRUE(terminal->Conecta.visible());

  LogIn();
  terminal->MDI.Picture2.Click();
  EXPECT_EQ(outside.boxes.questions.back(), "¿Desea Desconectarse?");
  EXPECT_TRUE(terminal->Conecta.cerrado());
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
  terminal->MDI.Placed({0, 0, 15000, 9000}, platform::Window::State::normal, 15000, 9000);
  const int before = terminal->MDI.Tickctl1.rect().width;
  EXPECT_NE(before, 15000 - 650);
  terminal->MDI.Placed({0, 0, 20000, 9000}, platform::Window::State::maximized, 20000, 9000);
  EXPECT_EQ(terminal->MDI.Tickctl1.rect().width, 20000 - 650);
  EXPECT_EQ(terminal->MDI.Tickctl2.rect().width, 20000 - 400);
  EXPECT_EQ(terminal->MDI.Picture3.rect().width, 20000 - 300);
}

}  // namespace

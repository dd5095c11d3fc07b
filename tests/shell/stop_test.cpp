#include <filesystem>
#include <functional>
#include <map>

#include "support/meta_store.h"
#include "terminal_fixture.h"

namespace {

using support::Frame;

struct Case {
  const char* what;
  std::function<void()> open;
};

class StopTest : public TerminalTest {
 protected:
  /// Passes the time until the program ends; the ticks of the main window that it took. The user is
  /// impatient.
  int TicksToTheEnd() {
    int ticks = 0;
    for (; !ended && ticks < 20; ++ticks) {
      outside.avanzar(500);
      terminal->MDI.UserClose();
      for (const int cartera : {0, 1}) terminal->MDI.Combo1.Click(cartera);
      outside.avanzar(500);
    }
    return ticks;
  }

  /// Asks for the history of an entry that has none yet.
  void Actualizar(bool daily) {
    const std::string store = daily ? "diario" : "intra";
    dir.Write(store + "/README", "");
    (daily ? support::WriteDailyStore : support::WriteIntradayStore)(
        dir.Path(store), {{.symbol = "ALD", .name = "ACME"}});
    platform::DirBox& box = daily ? terminal->Meta.Dir2 : terminal->Meta.Dir1;
    EXPECT_TRUE(box.set_path(dir.Path(store)));
    PressTool(51);
  }

  [[nodiscard]] std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(dir.path())) {
      if (!entry.is_regular_file()) continue;
      const std::string name = std::filesystem::relative(entry.path(), dir.path()).string();
      files[name] = dir.Read(name);
    }
    return files;
  }

  /// The stop is complete: only the main window is left, and nothing will ever happen again.
  void ExpectQuiet(const char* what, std::size_t writes) {
    EXPECT_TRUE(ended) << what;
    EXPECT_EQ(outside.windows.size(), 1U) << what;
    EXPECT_TRUE(terminal->MDI.loaded()) << what;
    EXPECT_EQ(outside.running_timers(), 0U) << what;
    EXPECT_EQ(feed().writes.size(), writes) << what;
    EXPECT_TRUE(terminal->Conecta.cerrado()) << what;
    EXPECT_EQ(history().state(), platform::Socket::State::closed) << what;
    EXPECT_EQ(history().sent, "") << what;
    EXPECT_LE(terminal->store.NumInstrumentos(), 1) << what;
  }

  const std::string new_master =
      Frame("99,1   " + support::MasterRecord({.code = "BET", .name = "BETA"}));
};

TEST_F(StopTest, EndsAtTheThirdTickWhateverIsOpen) {
  const Case cases[] = {
      {"nothing", [] {}},
      {"connecting", [this] { TypeLogin(); }},
      {"a download that waits",
       [this] {
         LogIn("ALD");
         Actualizar(/*daily=*/true);
         outside.avanzar(1000);
         EXPECT_EQ(history().state(), platform::Socket::State::connecting);
       }},
      {"all windows",
       [this] {
         LogIn("ALD");
         terminal->MDI.Check2.set_value(1);
         auto& t = *terminal;
         for (platform::Window* window : std::initializer_list<platform::Window*>{
                  &t.Continuo, &t.Indices, &t.Estadisticas, &t.Futuros, &t.Divisas, &t.Opciones,
                  &t.Hot, &t.Colores, &t.Form2}) {
           window->Show();
         }
         t.Graficos.Abrir(1);
         t.Graficos.at(0).Gr1_Command(charts::Chart::kAjustar);
         t.Graficos.at(0).Gr1_Command(charts::Chart::kMedia);
         terminal->APrecio.Show();
         terminal->FormAlarm.Show();
         terminal->ListAlarm.Show();
         for (const int cartera : {1, 2}) {
           AgregarCartera(cartera == 1 ? "Ahorro" : "Bolsa");
           Comprar(cartera, "ALD", 100, 8);
         }
         terminal->MDI.Combo1.Click(0);
         terminal->TCartera.Show();
         terminal->Cartera.Show();
         terminal->Operar_Cartera.Show();
         terminal->Detalle.Show();
         terminal->Meta.Show();
         terminal->Form1.Show();
         for (int i = 0; i < 2; ++i) terminal->Tickets.AbrirTicket(1);
         terminal->Tickets.abiertos().at(1)->Label6_DblClick();
         terminal->ListAlarm.Disparada("93000 ACME");
       }},
  };
  for (const auto& [what, open] : cases) {
    Start();
    outside.avanzar(300);
    open();
    const auto files = Files();
    const std::size_t writes = feed().writes.size();
    terminal->MDI.UserClose();
    EXPECT_EQ(TicksToTheEnd(), 3) << what;
    ExpectQuiet(what, writes);
    EXPECT_EQ(Files(), files) << what;
  }
}

TEST_F(StopTest, SilencesTheFeedBeforeAnyWindowGoes) {
  Start();
  LogIn("ALD");
  auto& board = terminal->Continuo;
  board.Show();
  outside.avanzar(8000);
  EXPECT_LT(board.Picture1.rect().top, 0);
  const std::size_t windows = outside.windows.size();
  terminal->MDI.UserClose();
  EXPECT_EQ(terminal->MDI.FaseCierre, 1);
  EXPECT_TRUE(terminal->Conecta.cerrado());
  EXPECT_FALSE(terminal->MDI.Tickctl1.scrolling());
  EXPECT_FALSE(terminal->MDI.Tickctl2.scrolling());
  EXPECT_FALSE(terminal->Conecta.Timer2.enabled());
  EXPECT_FALSE(board.Timer1.enabled());

  outside.avanzar(850);
  board.G.mouse_row = 0;
  board.G_MouseMove();  // its bar slides back
  auto& log = outside.desktop().log;
  log.clear();
  outside.avanzar(150);
  ASSERT_EQ(log.size(), windows - 1);
  EXPECT_EQ(log.front(), "closed Conecta");
  EXPECT_EQ(log[1], "closed Cotirama Mercado Continuo");
  EXPECT_EQ(outside.running_timers(), 1U);
  outside.avanzar(1000);
  EXPECT_FALSE(ended);
}

TEST_F(StopTest, GivesUpASocketThatDoesNotClose) {
  Start();
  LogIn("ALD");
  feed().close_hangs = true;
  const std::size_t writes = feed().writes.size();
  terminal->MDI.UserClose();
  outside.avanzar(2500);
  EXPECT_GT(outside.windows.size(), 1U);
  // What still comes reaches nobody.
  feed().Arrive(Frame("Not:0001tarde") + new_master);
  EXPECT_EQ(terminal->store.NumInstrumentos(), 1);
  EXPECT_TRUE(outside.boxes.messages.empty());
  EXPECT_FALSE(terminal->Conecta.EnviarTexto("P:ALD    "));
  EXPECT_EQ(TicksToTheEnd(), 3);
  EXPECT_EQ(feed().writes.size(), writes);
  EXPECT_EQ(outside.running_timers(), 0U);
}

TEST_F(StopTest, AnOpenBoxDoesNotHoldItUp) {
  const Case cases[] = {
      {"notice in the middle of a read",
       [this] {
         feed().Arrive(Frame("Not:0001uno") + Frame("Not:0002dos") + Frame("Internet:otro.es") +
                       new_master);
       }},
      {"socket error", [this] { feed().Fail("cortado"); }},
      {"question", [this] { terminal->MDI.Picture2.Click(); }},
      {"prompt", [this] { PressTool(66); }},
      {"date of the history",
       [this] {
         Actualizar(/*daily=*/false);
         history().Accept();
         outside.RunPosted();
       }},
  };
  for (const auto& [what, open] : cases) {
    outside.boxes = {};
    Start();
    LogIn("ALD");
    std::size_t writes = 0;
    outside.boxes.while_open = [&] {
      terminal->MDI.UserClose();
      EXPECT_TRUE(outside.boxes.dismissed) << what;
      writes = feed().writes.size();
      EXPECT_EQ(TicksToTheEnd(), 3) << what;
    };
    open();
    outside.avanzar(10000);
    ExpectQuiet(what, writes);
    EXPECT_LE(outside.boxes.messages.size(), 1U) << what;
  }
}

}  // namespace

#include <filesystem>
#include <functional>
#include <map>

#include "terminal_fixture.h"

namespace {

using support::Frame;

class StopTest : public TerminalTest {
 protected:
  /// Passes the time until the program ends; the ticks of the main window that it took.
  int TicksToTheEnd() {
    int ticks = 0;
    for (; !ended && ticks < 20; ++ticks) outside.avanzar(1000);
    return ticks;
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
    for (const support::FakeSocket* socket : outside.sockets) {
      EXPECT_EQ(socket->state(), platform::Socket::State::closed) << what;
    }
  }
};

TEST_F(StopTest, EndsAtTheThirdTickWhateverIsOpen) {
  struct Case {
    const char* what;
    std::function<void()> open;
  };
  for (const auto& [what, open] : {
           Case{"nothing", [] {}},
           Case{"connecting",
                [this] {
                  terminal->Conecta.Text1.set_text("invitado");
                  terminal->Conecta.Text2.set_text("secreto");
                  terminal->Conecta.Command2.Click();
                }},
           Case{"session", [this] { LogIn(); }},
           Case{"board and tickets",
                [this] {
                  LogIn("ALD");
                  terminal->Continuo.Show();
                  terminal->Tickets.AbrirTicket(1);
                  terminal->Tickets.AbrirTicket(1);
                  terminal->Tickets.abiertos().at(1)->Label6_DblClick();
                }},
           Case{"tape", [this] { terminal->Form2.Show(); }},
           Case{"alarm dialog and lists",
                [this] {
                  terminal->APrecio.Show();
                  terminal->FormAlarm.Show();
                }},
           Case{"beeping alarm",
                [this] {
                  terminal->ListAlarm.Disparada("93000 ACME");
                  terminal->ListAlarm.Show();
                }},
           Case{"market ticker", [this] { terminal->MDI.Check2.set_value(1); }},
       }) {
    Start();
    outside.avanzar(300);
    open();
    const auto files = Files();
    const std::size_t writes = feed().writes.size();
    terminal->MDI.UserClose();
    EXPECT_EQ(TicksToTheEnd(), 3) << what;
    ExpectQuiet(what, writes);
    EXPECT_EQ(Files(), files) << what;
    terminal.reset();
    ended = false;
  }
}

TEST_F(StopTest, SilencesTheFeedBeforeAnyWindowGoes) {
  Start();
  LogIn("ALD");
  terminal->Tickets.AbrirTicket(1);
  const std::size_t windows = outside.windows.size();
  terminal->MDI.UserClose();
  EXPECT_EQ(terminal->MDI.FaseCierre, 1);
  EXPECT_TRUE(terminal->Conecta.cerrado());
  EXPECT_FALSE(terminal->MDI.Tickctl1.scrolling());
  EXPECT_FALSE(terminal->MDI.Tickctl2.scrolling());
  EXPECT_FALSE(terminal->Conecta.Timer1.enabled());
  EXPECT_FALSE(terminal->Conecta.Timer2.enabled());
  EXPECT_FALSE(terminal->Continuo.Timer1.enabled());
  EXPECT_EQ(outside.windows.size(), windows);

  auto& log = outside.desktop().log;
  log.clear();
  outside.avanzar(1000);
  ASSERT_EQ(log.size(), windows - 1);
  EXPECT_EQ(log.front(), "closed Conecta");
  EXPECT_EQ(log[1], "closed Cotirama Mercado Continuo");
  EXPECT_EQ(outside.windows.size(), 1U);
  outside.avanzar(1000);
  EXPECT_FALSE(ended);
}

TEST_F(StopTest, ALaterRequestToCloseChangesNothing) {
  Start();
  int ends = 0;
  terminal->on_end = [&] { ++ends; };
  terminal->MDI.UserClose();
  for (int i = 0; i < 6; ++i) {
    outside.avanzar(500);
    terminal->MDI.UserClose();
    EXPECT_TRUE(terminal->MDI.loaded());
  }
  outside.avanzar(5000);
  EXPECT_EQ(ends, 1);
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
  feed().Arrive(Frame("Not:0001tarde") +
                Frame("99,1   " + support::MasterRecord({.code = "BET", .name = "BETA"})));
  EXPECT_EQ(terminal->store.NumInstrumentos(), 1);
  EXPECT_TRUE(outside.boxes.messages.empty());
  EXPECT_FALSE(terminal->Conecta.EnviarTexto("P:ALD    "));
  EXPECT_EQ(TicksToTheEnd(), 3);
  EXPECT_EQ(feed().writes.size(), writes);
  EXPECT_EQ(outside.running_timers(), 0U);
}

TEST_F(StopTest, AnOpenBoxDoesNotHoldItUp) {
  struct Case {
    const char* what;
    std::function<void()> open;
  };
  for (const auto& [what, open] : {
           Case{"notice in the middle of a read",
                [this] {
                  feed().Arrive(
                      Frame("Not:0001uno") + Frame("Not:0002dos") + Frame("Internet:otro.es") +
                      Frame("99,1   " + support::MasterRecord({.code = "BET", .name = "BETA"})));
                }},
           Case{"socket error", [this] { feed().Fail("cortado"); }},
           Case{"question", [this] { terminal->MDI.Picture2.Click(); }},
           Case{"prompt",
                [this] {
                  outside.boxes.line = "FIE";
                  PressTool(66);
                }},
       }) {
    Start();
    LogIn("ALD");
    outside.boxes.dismissed = false;
    std::size_t writes = 0;
    const std::size_t messages = outside.boxes.messages.size();
    outside.boxes.while_open = [&] {
      terminal->MDI.UserClose();
      EXPECT_TRUE(outside.boxes.dismissed) << what;
      writes = feed().writes.size();
      EXPECT_EQ(TicksToTheEnd(), 3) << what;
    };
    open();
    outside.avanzar(10000);
    ExpectQuiet(what, writes);
    EXPECT_LE(outside.boxes.messages.size(), messages + 1) << what;
    EXPECT_EQ(terminal->store.NumInstrumentos(), 1) << what;
    terminal.reset();
    ended = false;
  }
}

TEST_F(StopTest, ASlidingBarStopsWithItsBoard) {
  Start();
  LogIn("ALD");
  auto& board = terminal->Continuo;
  board.Show();
  outside.avanzar(8000);
  const int hidden = board.Picture1.rect().top;
  ASSERT_LT(hidden, 0);
  terminal->MDI.UserClose();
  outside.avanzar(850);
  board.G.mouse_row = 0;
  board.G_MouseMove();
  outside.avanzar(150);
  const int stopped = board.Picture1.rect().top;
  EXPECT_GT(stopped, hidden);
  EXPECT_LT(stopped, 0);
  outside.avanzar(5000);
  EXPECT_EQ(board.Picture1.rect().top, stopped);
  ExpectQuiet("slide", feed().writes.size());
}

}  // namespace

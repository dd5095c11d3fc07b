#include "shell/terminal.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>

#include "../wait.h"
#include "qt/demo/embedded_market.h"
#include "qt/look/register.h"
#include "qt/ports/qt_platform.h"
#include "support/temp_dir.h"

namespace {

using support::WaitFor;

/// The program as the user has it, with a market that can be pulled away.
class TerminalOverTcp : public testing::Test {
 protected:
  TerminalOverTcp() { qt::RegisterLooks(looks); }
  ~TerminalOverTcp() override { platform.desktop().Clear(); }

  [[nodiscard]] static demo::FeedOptions Busy() {
    return {.seed = 7, .quotes_per_second = 400, .start_second = 10 * 3600};
  }
  [[nodiscard]] QWidget* WidgetOf(const platform::Window& window) {
    const qt::WindowFrame* frame = platform.desktop().FrameOf(window);
    return frame ? frame->outer() : nullptr;
  }
  void LogIn() {
    terminal.Conecta.Text1.set_text("quien");
    terminal.Conecta.Text2.set_text("clave");
    terminal.Conecta.Command2.Click();
  }
  [[nodiscard]] bool BoardHasRows() {
    return WaitFor([&] { return terminal.Continuo.G.rows() > 100; });
  }
  /// The last cell of a row that has just changed stands out.
  [[nodiscard]] bool BoardFlashes() const {
    const platform::Grid& grid = terminal.Continuo.G;
    for (int row = 1; row < grid.rows(); ++row) {
      if (grid.back(row, grid.cols() - 1) != grid.back_color()) return true;
    }
    return false;
  }

  support::TempDir directory;
  qt::Looks looks;
  std::optional<qt::EmbeddedMarket> market{std::in_place, Busy()};
  qt::QtPlatform platform{looks, [this](const std::string& host, std::uint16_t port) {
                            return qt::ResolverWith(*market)(host, port);
                          }};
  shell::Terminal terminal{platform, base::ProgramDir(directory.path())};
};

TEST_F(TerminalOverTcp, ShowsAMovingBoardAfterLogin) {
  terminal.Start();
  ASSERT_TRUE(WidgetOf(terminal.Conecta)->isVisible());
  EXPECT_EQ(WidgetOf(terminal.Continuo), nullptr);
  LogIn();
  EXPECT_FALSE(WidgetOf(terminal.Conecta)->isVisible());
  terminal.Continuo.Show();
  ASSERT_TRUE(BoardHasRows());
  EXPECT_GT(terminal.store.NumInstrumentos(), 100);
  EXPECT_EQ(terminal.MDI.Label2.caption(),
            "Instrumentos: " + std::to_string(terminal.store.NumInstrumentos()));

  EXPECT_TRUE(WaitFor([&] { return BoardFlashes(); }));
  EXPECT_TRUE(WaitFor([&] { return !terminal.MDI.LT.caption().empty(); }));
  EXPECT_TRUE(WidgetOf(terminal.Continuo)->isVisible());
}

TEST_F(TerminalOverTcp, ComesBackByItselfWhenTheServerDoes) {
  terminal.Start();
  LogIn();
  ASSERT_TRUE(BoardHasRows());
  market.emplace(Busy());
  ASSERT_TRUE(WaitFor([&] { return terminal.Conecta.cerrado(); }));
  EXPECT_EQ(terminal.MDI.Picture2.picture(), platform::Picture::closed);
  EXPECT_TRUE(WaitFor([&] { return terminal.Conecta.conectado(); }));
}

TEST_F(TerminalOverTcp, ClosingTheMainWindowEndsTheProgram) {
  bool ended = false;
  terminal.on_end = [&] { ended = true; };
  terminal.Start();
  LogIn();
  terminal.Continuo.Show();
  ASSERT_TRUE(BoardHasRows());
  WidgetOf(terminal.Continuo)->close();
  EXPECT_TRUE(terminal.Continuo.loaded());
  WidgetOf(terminal.MDI)->close();
  EXPECT_TRUE(WaitFor([&] { return ended; }));
}

}  // namespace

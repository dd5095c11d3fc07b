#include "services/browser.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"

namespace {

struct Browser : testing::Test {
  Browser() {
    window.steps.Manual = [] { return "file:///p/Manual/"; };
    window.brwWebBrowser.do_navigate = [this](const std::string& address) {
      log += address + "\n";
    };
    window.brwWebBrowser.do_back = [this] { log += "back\n"; };
    window.brwWebBrowser.do_forward = [this] { log += "forward\n"; };
    window.brwWebBrowser.do_refresh = [this] { log += "refresh\n"; };
    window.brwWebBrowser.do_stop = [this] { log += "stop\n"; };
  }
  ~Browser() override { (void)window.Unload(); }

  support::MemoryPlatform platform;
  services::Browser window{platform};
  std::string log;
};

TEST_F(Browser, PutsHttpInFrontOfWhateverElseIsTyped) {
  window.Show();
  const std::string endless(5000, 'a');
  const std::pair<std::string, std::string> cases[] = {
      {"www.bolsa.es", "http://www.bolsa.es\n"},
      {"http://bolsa/", "http://bolsa/\n"},
      {"https://bolsa/", "http://https://bolsa/\n"},
      {"HTTP://bolsa/", "http://HTTP://bolsa/\n"},
      {"file:///etc/passwd", "http://file:///etc/passwd\n"},
      {" bol\nsa\t", "http://bol sa\n"},
      {endless, "http://" + std::string(2000, 'a') + "\n"},
      {"", ""},
      {" \t ", ""}};
  for (const auto& [typed, navigated] : cases) {
    log.clear();
    window.Direccion.set_text(typed);
    window.Direccion.on_enter();
    EXPECT_EQ(log, navigated);
  }
  log.clear();
  window.Direccion.set_text("half");
  EXPECT_EQ(log, "");
}

TEST_F(Browser, BarCallsTheViewAndOpensPages) {
  window.Show();
  for (const platform::Tool& tool : window.ActiveBar1.tools) window.ActiveBar1.Click(tool);
  window.Abrir(services::Browser::Pagina::manual);
  const std::string manual = "file:///p/Manual/index.html\n";
  EXPECT_EQ(log, manual + "back\nforward\nstop\nrefresh\n" + manual + manual + manual + manual);
}

TEST_F(Browser, TitleAndFieldFollowThePageButSpareWhatIsTyped) {
  window.Show();
  platform::WebView& view = window.brwWebBrowser;
  view.Tell(true, "", "http://bolsa/");
  EXPECT_EQ(window.caption(), "Trabajando...");
  EXPECT_EQ(window.Direccion.text(), "http://bolsa/");
  window.Direccion.set_text("www.otr");
  view.Tell(false, "La <b>bolsa</b>\nde hoy " + std::string(5000, 'x'), "http://bolsa/2");
  EXPECT_EQ(window.caption(), "La <b>bolsa</b> de hoy " + std::string(77, 'x'));
  EXPECT_EQ(window.Direccion.text(), "www.otr");
  window.Direccion_LostFocus();
  EXPECT_EQ(window.Direccion.text(), "http://bolsa/2");
  view.Tell(false, " \n", "http://bolsa/3");
  EXPECT_EQ(window.caption(), "http://bolsa/3");
  EXPECT_EQ(window.Direccion.text(), "http://bolsa/3");
}

TEST_F(Browser, ViewTakesItsSizeFromTheWindowUnlessThatIsFlat) {
  window.Show();
  window.Placed({0, 0, 9000, 6000}, platform::Window::State::normal, 8990, 5700);
  EXPECT_EQ(window.brwWebBrowser.rect(), (platform::Rect{0, 0, 8950, 5950}));
  window.Placed({0, 0, 9000, 100}, platform::Window::State::normal, 8990, 0);
  EXPECT_EQ(window.brwWebBrowser.rect(), (platform::Rect{0, 0, 8950, 5950}));
}

TEST(WebView, GoesToTheWebAndTheFilesOfOneDirectoryOnly) {
  platform::WebView view;
  view.set_files("file:///p/Manual/");
  for (const char* allowed : {"http://a", "https://a/?b", "file:///p/Manual/index.html",
                              "file:///p/Manual/a-1.png?x#../y"}) {
    EXPECT_TRUE(view.Allows(allowed)) << allowed;
  }
  for (const char* refused :
       {"", "ftp://a", "javascript:alert(1)", "data:text/html,a", "about:blank", "chrome://version",
        "view-source:http://a", "file:///p/Manual/", "file:///p/Manual/#a", "file:///p/Manual/../x",
        "file:///p/Manual/%2e%2e/x", "file:///p/Manual/..%2fx", "file:///p/Manual/a/b",
        "file:///p/Manual/.b", "file:///p/Manual2/x", "file:///etc/passwd"}) {
    EXPECT_FALSE(view.Allows(refused)) << refused;
    view.Navigate(refused);
  }
  EXPECT_EQ(view.address(), "");
  view.set_files("");
  EXPECT_FALSE(view.Allows("file:///p/Manual/index.html"));
}

}  // namespace

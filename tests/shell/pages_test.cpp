#include "demo/pages.h"

#include "base/ansi.h"
#include "base/inflate.h"
#include "base/text.h"
#include "demo/feed.h"
#include "terminal_fixture.h"

namespace {

class PagesTest : public TerminalTest {
 protected:
  [[nodiscard]] const std::string& shown() const { return terminal->Pages.Label1.caption(); }
  [[nodiscard]] static std::string Shown(const std::string& page) {
    std::string lines;
    for (std::size_t line = 0; line < 25; ++line) {
      lines += base::AnsiToUtf8(base::Mid(page, line * 80 + 1, 80)) + "\r\n";
    }
    return lines;
  }
};

TEST_F(PagesTest, AskForOneInOneWrite) {
  Start();
  terminal->Pages.Show();
  terminal->Pages.Command2.Click();
  LogIn();
  terminal->Pages.Text1.set_text("10");
  const std::string head = "TRZO:invitadsecre:invitadsecre\xFF\xFEMsg:invitadsecre   :PAGS:";
  feed().writes.clear();
  terminal->Pages.Command2.Click();
  terminal->Pages.Text1.on_enter();
  EXPECT_EQ(feed().writes, (std::vector{head + "1\xFF\xFE", head + "10\xFF\xFE"}));
}

TEST_F(PagesTest, ComeWholeShortLongOrBroken) {
  Start();
  LogIn();
  std::string text;
  for (char c = 'a'; c < 'z'; ++c) text += std::string(80, c);
  const std::string packed = base::Compress(text);
  const struct {
    std::string sent, page;
  } cases[] = {
      {packed, text},
      {base::Compress(text + "more"), text},
      {base::Compress(text.substr(0, 90)), text.substr(0, 90)},
      {text, text},
      {packed.substr(0, 20), base::OneLine(packed.substr(0, 20))},
      {"", ""},
      {"a\tb\x01", "a b "},
  };
  for (const auto& [sent, page] : cases) {
    terminal->Pages.Text1.set_text("10");
    feed().Arrive(support::Frame("Pag " + sent));
    EXPECT_EQ(shown(), Shown(page));
    EXPECT_EQ(terminal->Pages.Text1.text(), "");
  }
  EXPECT_FALSE(terminal->Pages.visible());
}

TEST_F(PagesTest, ThoseOfTheEmbeddedMarketAreShownAsItMadeThem) {
  demo::Feed market({.quotes_per_second = 0, .start_second = 40'000});
  const int id = market.Connect();
  Start();
  LogIn();
  terminal->Pages.Show();
  const auto pass = [&] {
    market.Receive(id, feed().sent);
    feed().sent.clear();
    market.Advance(20);
    feed().Arrive(market.TakeOutput(id));
  };
  pass();
  for (const char* number : {"2", "3", "4", "5", "10", "11", "12", "13", "20", "21", "90", "x"}) {
    terminal->Pages.Text1.set_text(number);
    terminal->Pages.Text1.on_enter();
    pass();
    EXPECT_EQ(shown(), Shown(demo::pages::Make(market.market(), number))) << number;
  }
  terminal->Pages.Command5.Click();
  pass();
  EXPECT_EQ(shown(), Shown(demo::pages::Make(market.market(), "1")));
  EXPECT_FALSE(terminal->Pages.visible());
}

}  // namespace

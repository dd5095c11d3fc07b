#include "services/pages.h"

#include <gtest/gtest.h>
#include <vector>

#include "support/memory_platform.h"

namespace {

class PagesTest : public testing::Test {
 protected:
  PagesTest() {
    pages.steps = {.Conectado = [this] { return connected; },
                   .IdSesion = [] { return std::string("invitadsecre"); },
                   .EnviarTexto = [this](std::string_view text) { sent.emplace_back(text); }};
  }
  [[nodiscard]] static std::string Request(std::string_view page) {
    return std::string("TRZO:invitadsecre:invitadsecre\xFF\xFEMsg:invitadsecre   :PAGS:")
        .append(page);
  }

  support::MemoryPlatform outside;
  services::Pages pages{outside};
  bool connected = true;
  std::vector<std::string> sent;
};

TEST_F(PagesTest, EveryButtonAsksForTheFirstPageAndTheLastOneHides) {
  pages.Text1.set_text("7");
  for (auto* button :
       {&pages.Command1, &pages.Command2, &pages.Command3, &pages.Command4, &pages.Command5}) {
    for (const bool now : {true, false}) {
      connected = now;
      sent.clear();
      pages.Show();
      button->Click();
      EXPECT_EQ(sent, (std::vector<std::string>(now ? 1 : 0, Request("1"))));
      EXPECT_EQ(pages.visible(), button != &pages.Command5) << now;
    }
  }
  connected = false;
  pages.Text1.on_enter();
  EXPECT_TRUE(sent.empty());
}

TEST_F(PagesTest, NothingThatIsTypedEndsTheRequest) {
  struct Case {
    std::string_view typed, page;
  };
  const Case cases[] = {
      {"10", "10"},
      {"", ""},
      {" 3 ", " 3 "},
      {"año €", "a\xF1o \x80"},
      {"日\xC3", "??"},
      {"1ÿþ2", "1  2"},
      {"ÿÿþþ", "\xFF  \xFE"},
      {"þÿ", "\xFE\xFF"},
      {std::string_view("ÿ\0þ\r\n\tx", 9), "\xFF \xFE   x"},
  };
  for (const Case& c : cases) {
    sent.clear();
    pages.Text1.set_text(c.typed);
    pages.Text1.on_enter();
    EXPECT_EQ(sent, std::vector{Request(c.page)}) << c.typed;
    EXPECT_EQ(pages.Text1.text(), c.typed);
  }
}

TEST_F(PagesTest, APageLoadsTheWindowWithoutShowingIt) {
  pages.Text1.set_text("10");
  pages.PaginaLista("uno\r\ndos\r\n");
  EXPECT_TRUE(pages.loaded());
  EXPECT_FALSE(pages.visible());
  EXPECT_EQ(pages.Text1.text(), "");
  EXPECT_EQ(pages.Label1.caption(), "uno\r\ndos\r\n");
}

}  // namespace

#include "demo/pages.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "base/ansi.h"
#include "base/text.h"
#include "session.h"

namespace demo {
namespace {

std::string_view LineOf(const std::string& page, std::size_t line) {
  return std::string_view(page).substr(line * 80, 80);
}

/// The numbers that the index names, and the titles behind them.
std::vector<std::pair<std::string, std::string>> Listed(const Market& market) {
  const std::string index = pages::Make(market, "1");
  std::vector<std::pair<std::string, std::string>> listed;
  for (std::size_t line = 5; line < 23; ++line) {
    const std::string_view text = LineOf(index, line);
    const std::string number(base::Trim(text.substr(0, 8)));
    if (!number.empty()) listed.emplace_back(number, base::Trim(text.substr(12, 24)));
  }
  return listed;
}

TEST(Pages, AtAnyTimeEveryOneThatTheIndexNamesHas25LinesOf80PlainCharacters) {
  struct Case {
    int start_second, extra, seconds;
  };
  for (const Case& c : {Case{32'380, 0, 0}, {32'380, 3000, 60}, {63'000 - 5, 0, 600}}) {
    Feed feed({.extra_instruments = c.extra, .start_second = c.start_second});
    feed.Advance(c.seconds * 1000);
    const auto listed = Listed(feed.market());
    EXPECT_EQ(listed.size(), 12U);
    for (const auto& [number, title] : listed) {
      const std::string page = pages::Make(feed.market(), " " + number + " ");
      EXPECT_EQ(page.size(), 2000U) << number;
      EXPECT_TRUE(std::ranges::none_of(page, [](unsigned char b) { return b < 32 || b == 127; }));
      EXPECT_NE(LineOf(page, 0).find(title), std::string_view::npos) << number;
      EXPECT_NE(LineOf(page, 5).find_first_not_of(' '), std::string_view::npos) << number;
    }
  }
}

TEST(Pages, AnUnknownNumberLeadsToTheIndexWhateverBytesItHas) {
  const Market market({});
  for (const std::string& number : {std::string("77"), std::string(), std::string("1 1"),
                                    "\x01\x1F" + std::string(3000, '\xFF'), std::string(5, '\0')}) {
    const std::string page = pages::Make(market, number);
    EXPECT_EQ(page.size(), 2000U);
    EXPECT_TRUE(std::ranges::none_of(page, [](unsigned char b) { return b < 32; }));
    EXPECT_NE(page.find("DESCONOCIDA"), std::string::npos) << number;
    EXPECT_NE(page.find("1 es el"), std::string::npos);
  }
}

TEST(Pages, FallsStandInOrderWithTheirNumbersInColumns) {
  Feed feed({.start_second = 36'000});
  feed.Advance(600'000);
  const std::string page = pages::Make(feed.market(), "12");
  double before = -100;
  for (std::size_t line = 5; line < 23; ++line) {
    const std::string_view text = LineOf(page, line);
    const auto slot = feed.market().Find(base::Trim(text.substr(5, 6)));
    ASSERT_TRUE(slot) << text;
    const Instrument& share = feed.market().instruments()[*slot];
    const double change = 100.0 * static_cast<double>(share.last - share.previous) /
                          static_cast<double>(share.previous);
    EXPECT_LE(before, change);
    before = change;
    for (const std::size_t end : {3, 41, 50, 62, 70, 79}) {
      EXPECT_TRUE(text[end - 1] != ' ' && text[end] == ' ') << text;
    }
  }
  EXPECT_LT(before, 0);
}

TEST(Pages, AreAnsweredInBothFormsAndAtABoundedRate) {
  const std::string request = Line("Msg:abcdefghijkl   :PAGS:90");
  Session session;
  session.Send(request);
  EXPECT_TRUE(session.terminal.pages.empty()) << "nobody has logged in";
  session.Send(LogIn());
  std::size_t compressed = 0;
  for (int i = 0; i < 8; ++i) {
    session.Send(request);
    ASSERT_EQ(session.terminal.pages.size(), 1U);
    EXPECT_EQ(session.terminal.pages[0], pages::Make(session.feed.market(), "90"));
    compressed += session.terminal.messages[0].size() < 2004 ? 1U : 0U;
  }
  EXPECT_EQ(compressed, 6U);
  for (const char* other : {"Msg:abcdefghijkl   :PAGX:1", "Msg:", "RNETabc:PAGS:1"}) {
    session.Send(Line(other));
    EXPECT_TRUE(session.terminal.messages.empty()) << other;
  }
  std::string flood;
  for (int i = 0; i < 5000; ++i) flood += request;
  session.Send(flood);
  EXPECT_GT(session.terminal.pages.size(), 10U);
  EXPECT_LE(session.terminal.pages.size(), 41U);
  EXPECT_EQ(session.terminal.faults, std::vector<std::string>());
}

}  // namespace
}  // namespace demo

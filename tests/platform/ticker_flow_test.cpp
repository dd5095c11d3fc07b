#include "platform/ticker_flow.h"

#include <gtest/gtest.h>
#include <string>

#include "platform/ticker.h"

namespace {

using platform::Ticker;
using platform::TickerFlow;
using platform::TickerItem;

/// A strip on which every character is 10 pixels wide.
class TickerFlowTest : public testing::Test {
 protected:
  void Put(const std::string& text, const std::string& key, int spacing = 20) {
    (void)ticker_.QuitarItem(key);
    ticker_.PonerTexto(text, key, base::palette::kWhite, spacing, "");
    flow_.Update(ticker_.items());
  }
  /// What stands on the strip after each move, as "text@left".
  std::string Move(std::initializer_list<double> moves) {
    std::string strip;
    for (const double pixels : moves) {
      moving_ = flow_.Advance(ticker_.items(), pixels, width_);
      for (const auto& piece : flow_.pieces()) {
        strip += piece.item.text + "@" + std::to_string(static_cast<int>(piece.left)) + " ";
      }
      strip += "| ";
    }
    return strip;
  }

  double width_ = 60;
  bool moving_ = false;
  Ticker ticker_;
  TickerFlow flow_{[](const TickerItem& item) { return 10.0 * double(item.text.size()); }};
};

TEST_F(TickerFlowTest, ItemsEnterAtTheRightOneAfterAnotherAndLeaveAtTheLeft) {
  Put("aa", "A");
  Put("bbb", "B");
  EXPECT_EQ(Move({5, 30, 10, 39, 1, 10}),
            "aa@60 | aa@30 | aa@20 bbb@60 | aa@-19 bbb@21 | bbb@20 | bbb@10 aa@60 | ");
}

TEST_F(TickerFlowTest, AnItemPutInAgainKeepsItsPlaceAndShowsItsNewText) {
  width_ = 45;
  Put("aa", "A");
  Put("bb", "B");
  EXPECT_EQ(Move({0, 40}), "aa@45 | aa@5 bb@45 | ");
  Put("aaaa", "A");
  EXPECT_EQ(Move({0}), "aaaa@5 bb@65 | ") << "a longer text pushes what follows";
  Put("a", "A");
  EXPECT_EQ(Move({0}), "a@5 bb@65 | ") << "a shorter one leaves a gap";
}

TEST_F(TickerFlowTest, TheItemShownLongestAgoEntersNextHoweverOftenOthersAreReplaced) {
  width_ = 100;
  for (const char* key : {"A", "B", "C"}) Put(std::string(9, key[0]), key);
  std::string order;
  for (int step = 0; step < 60; ++step) {
    Put(std::string(9, 'A'), "A");  // moves to the end of the list each time
    const auto before = flow_.pieces().size();
    Move({12});
    if (flow_.pieces().size() > before) order += flow_.pieces().back().item.key;
  }
  EXPECT_EQ(order.substr(0, 6), "BCABCA");
}

TEST_F(TickerFlowTest, ItemsOfAnEmptyKeyAreApartAndGoTogether) {
  width_ = 50;
  ticker_.PonerTexto("one", "", 7, 0, "");
  Put("A", "A", 0);
  ticker_.PonerTexto("two", "", 7, 0, "");
  flow_.Update(ticker_.items());
  EXPECT_EQ(Move({0, 30, 10}), "one@50 | one@20 A@50 | one@10 A@40 two@50 | ");
  ticker_.QuitarItem("");
  flow_.Update(ticker_.items());
  EXPECT_EQ(Move({0}), "A@40 | ");
}

TEST_F(TickerFlowTest, ItemsThatAllFitComeToRestAtTheLeft) {
  width_ = 120;
  Put("aa", "A");
  Put("bbb", "B");
  for (int step = 0; step < 12; ++step) {
    Move({10});
    EXPECT_TRUE(moving_);
  }
  EXPECT_EQ(Move({10, 10}), "aa@12 bbb@52 | aa@12 bbb@52 | ");
  EXPECT_FALSE(moving_);
  Put("c", "C", 0);
  EXPECT_EQ(Move({10, 25}), "aa@12 bbb@52 c@120 | aa@12 bbb@52 c@102 | ");
  width_ = 70;
  EXPECT_EQ(Move({10}), "aa@2 bbb@42 c@92 | ") << "what fits no longer runs on";
}

}  // namespace

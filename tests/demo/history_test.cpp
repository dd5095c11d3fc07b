#include "demo/history.h"

#include <gtest/gtest.h>
#include <tuple>

#include "demo/feed.h"

namespace demo {
namespace {

constexpr int kDayMs = (SessionClock::kLast - SessionClock::kFirst) * 1000;

void ExpectSound(const HistoryBar& bar) {
  const DayBar& prices = bar.bar;
  EXPECT_GT(prices.low, 0);
  EXPECT_LE(prices.low, std::min(prices.open, prices.close));
  EXPECT_GE(prices.high, std::max(prices.open, prices.close));
  EXPECT_GT(prices.volume, 0);
}

// The parts of `date` make up that day.
void ExpectAddUp(const std::vector<HistoryBar>& parts, const HistoryBar& day) {
  DayBar sum;
  for (const HistoryBar& part : parts) {
    if (part.date != day.date) continue;
    if (sum.open == 0) sum = part.bar;
    EXPECT_LE(sum.low, sum.high);
    sum.high = std::max(sum.high, part.bar.high);
    sum.low = std::min(sum.low, part.bar.low);
    sum.close = part.bar.close;
  }
  EXPECT_EQ(std::tie(sum.open, sum.high, sum.low, sum.close),
            std::tie(day.bar.open, day.bar.high, day.bar.low, day.bar.close))
      << day.date;
}

TEST(History, LeadsToThePricesOfEveryShareWithoutABreak) {
  const Market market({.seed = 3});
  const History history(market, 3);
  for (const catalogue::Share& share : catalogue::Shares()) {
    SCOPED_TRACE(share.code);
    const std::size_t slot = *market.Find(share.code);
    const std::vector<HistoryBar> days = history.Days(slot), parts = history.Parts(slot);
    ASSERT_EQ(days.size(), 357u);
    EXPECT_EQ(days.front().date, 990104);
    EXPECT_EQ(days.back().date, 1000516);
    EXPECT_EQ(days.back().bar.close, market.instruments()[slot].previous);
    for (std::size_t i = 0; i < days.size(); ++i) {
      ExpectSound(days[i]);
      if (i > 0) {
        ASSERT_LT(days[i - 1].date, days[i].date);
      }
    }
    ASSERT_EQ(parts.size(), history.MinutesOf(slot) == 5 ? 3060u : 1530u);
    for (std::size_t i = 0; i < parts.size(); ++i) {
      ExpectSound(parts[i]);
      if (i > 0) {
        ASSERT_LT(std::tie(parts[i - 1].date, parts[i - 1].time),
                  std::tie(parts[i].date, parts[i].time));
      }
    }
    ExpectAddUp(parts, days.back());
    ExpectAddUp(parts, days[days.size() - History::kDays]);
  }
}

TEST(History, DaysThatWentByStandInItAsTheyWere) {
  Feed feed({.seed = 2});
  const Market& market = feed.market();
  const History history(market, 2);
  const std::size_t slot = *market.Find("BVL");
  const std::vector<HistoryBar> before = history.Days(slot);
  const int nearly = kDayMs - 1000;
  for (int ms = 0; ms < nearly; ms += 3'000'000) feed.Advance(std::min(3'000'000, nearly - ms));
  const DayBar lived = DayOf(market.instruments()[slot]);
  EXPECT_EQ(history.Days(slot).size(), before.size());
  feed.Advance(2000);
  const std::vector<HistoryBar> after = history.Days(slot);
  ASSERT_EQ(after.size(), before.size() + 1);
  EXPECT_EQ(after[before.size() - 1].bar.close, before.back().bar.close);
  EXPECT_EQ(after.back().date, 1000517);
  EXPECT_EQ(after.back().bar.close, market.instruments()[slot].previous);
  EXPECT_EQ(after.back().bar.volume, lived.volume);
  ExpectAddUp(history.Parts(slot), after.back());
}

TEST(History, TodayEndsWithTheLastWholePartBeforeNow) {
  Feed feed({.start_second = 9 * 3600 + 14 * 60 + 50});
  const std::size_t slot = *feed.market().Find("BVL");
  const History history(feed.market(), 1);
  EXPECT_EQ(history.Parts(slot).back().time, 90500);
  feed.Advance(10'000);
  EXPECT_EQ(history.Parts(slot).back().time, 91000);
  EXPECT_EQ(history.Parts(slot).back().date, 1000517);
  EXPECT_TRUE(history.Parts(*feed.market().Find("I IB")).empty()) << "not a share";
}

}  // namespace
}  // namespace demo

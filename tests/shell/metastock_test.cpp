#include <algorithm>

#include "support/meta_store.h"
#include "terminal_fixture.h"

namespace {

using support::Frame;

class MetaStockTest : public TerminalTest {
 protected:
  /// Seconds after which the keys go out, of the next `seconds`.
  std::vector<int> KeysWithin(int seconds) {
    auto& log = outside.other_windows().log;
    std::vector<int> at;
    for (int second = 1; second <= seconds; ++second) {
      log.clear();
      outside.avanzar(1000);
      if (std::ranges::count(log, "keys %{LEFT}") > 0) at.push_back(second);
    }
    return at;
  }
};

TEST_F(MetaStockTest, AQuoteReachesBothStoresThatTheFileOfPathsNames) {
  using support::BarKind;
  const support::StoredBar old{1000425, 0, 9, 10, 8, 9.5F, 100};
  support::StoredBar old_intraday = old;
  old_intraday.time = 173000;
  dir.Write("diario/README", "");
  dir.Write("intra/README", "");
  const std::string daily = dir.Path("diario"), intraday = dir.Path("intra");
  support::WriteDailyStore(daily, {{.symbol = "ALD", .name = "ACME", .bars = {old}}});
  support::WriteIntradayStore(
      intraday, {{.file = 8, .symbol = "ALD", .name = "ACME", .bars = {old_intraday}}});
  dir.Write("path.cfg",
            support::Pad("/", 3) + support::Pad(intraday, 50) + "/  " + support::Pad(daily, 50));
  Start();
  auto& t = *terminal;
  EXPECT_EQ(t.Meta.List1.items(), t.Meta.List2.items());
  ASSERT_EQ(t.Stores.MasterCount * 10 + t.Stores.EMasterCount, 11);
  t.Stores.MasterSelected[1] = t.Stores.EMasterSelected[1] = 1;
  outside.other_windows().found = 7;
  LogIn("ALD");
  outside.avanzar(5000);
  auto& log = outside.other_windows().log;
  log.clear();
  feed().Arrive(Frame(support::Clock(93105, 1000426)) +
                Frame("01,2:" + support::QuoteRecord({"ALD", 12, 11, 12, 500})));
  EXPECT_EQ(std::ranges::count(log, "send 7 49440"), 2) << "one a store";
  feed().Arrive(Frame("01,2:" + support::QuoteRecord({"ALD", 12, 11, 11.5F, 700})));
  using Bars = std::vector<support::StoredBar>;
  EXPECT_EQ(support::ReadBars(support::DataPath(intraday, 8), BarKind::intraday_open),
            (Bars{old_intraday, {1000426, 93105, 12, 12, 11.5F, 11.5F, 200}}));
  EXPECT_EQ(support::ReadBars(support::DataPath(daily, 1), BarKind::daily_open),
            (Bars{old, {1000426, 0, 12, 12, 11.5F, 11.5F, 200}}));
}

TEST_F(MetaStockTest, TheKeysGoOutWithTheFirstTickOfTheSessionAfterThePeriod) {
  using Seconds = std::vector<int>;
  Start();
  auto& check = terminal->MDI.Check1;
  outside.other_windows().found = 7;
  EXPECT_EQ(KeysWithin(65), Seconds{});
  EXPECT_FALSE(check.visible()) << "no session";
  LogIn();
  EXPECT_EQ(KeysWithin(5), Seconds{});
  EXPECT_TRUE(check.visible());
  check.set_value(1);
  EXPECT_EQ(KeysWithin(10), Seconds{5}) << "a period had passed while they weren't allowed";
  outside.boxes.line = "12";
  PressTool(52);
  EXPECT_EQ(KeysWithin(40), (Seconds{15, 25, 40}));
  check.set_value(0);
  EXPECT_EQ(KeysWithin(20), Seconds{});
  check.set_value(1);
  EXPECT_EQ(KeysWithin(20), Seconds{15}) << "the period begins anew";
  feed().PeerClose();
  outside.boxes.line = "";
  PressTool(52);
  EXPECT_EQ(KeysWithin(20), Seconds{}) << "no session";
}

}  // namespace

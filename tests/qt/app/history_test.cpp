#include "demo/history.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <utility>

#include "../wait.h"
#include "demo/sample_stores.h"
#include "qt/demo/embedded_market.h"
#include "qt/look/register.h"
#include "qt/ports/qt_platform.h"
#include "shell/terminal.h"
#include "support/bytes.h"
#include "support/meta_store.h"
#include "support/temp_dir.h"

namespace {

using support::BarKind;
using support::StoredBar;
using support::WaitFor;

/// A terminal that is told of sample stores, and the market that they are of.
class HistoryOverTcp : public testing::Test {
 protected:
  static constexpr int kDaily = 9, kIntraday = 12;

  HistoryOverTcp() {
    qt::RegisterLooks(looks);
    for (const auto& file : demo::SampleStores(history)) directory.Write(file.name, file.bytes);
    directory.Write("path.cfg", "/  " + support::Pad(directory.Path(demo::kSampleIntraday), 50) +
                                    "/  " + support::Pad(directory.Path(demo::kSampleDaily), 50));
  }
  ~HistoryOverTcp() override { platform.desktop().Clear(); }

  /// Progress may take a while in all, but not from one entry to the next.
  [[nodiscard]] bool DownloadAll() {
    terminal.Start();
    terminal.Conecta.Text1.set_text("quien");
    terminal.Conecta.Text2.set_text("clave");
    terminal.Conecta.Command2.Click();
    // All but the two balances that have no record: whatever comes later would be a bar of today.
    const std::size_t records = market_of_stores.listed() - 2;
    const auto known = [&] { return static_cast<std::size_t>(terminal.store.NumInstrumentos()); };
    if (!WaitFor([&] { return known() >= records; })) return false;
    terminal.Download.Actualizar();
    for (int done = 1; done <= kDaily + kIntraday; ++done) {
      if (!WaitFor([&] { return terminal.Stores.CountSelected() >= done; })) return false;
    }
    return true;
  }
  [[nodiscard]] std::size_t SlotOf(std::string_view symbol) const {
    return market_of_stores.Find(metastock::CodeOf(symbol).trimmed()).value();
  }

  // A quiet market: what the files get is history.
  const demo::FeedOptions options{.seed = 7, .quotes_per_second = 0};
  const demo::Market market_of_stores{options};
  const demo::History history{market_of_stores, options.seed};
  support::TempDir directory;
  qt::Looks looks;
  qt::EmbeddedMarket market{options};
  qt::QtPlatform platform{looks, qt::ResolverWith(market)};
  shell::Terminal terminal{platform, base::ProgramDir(directory.path())};
};

// What a file should hold of `bars`; by date and time.
std::map<std::pair<int, int>, demo::DayBar> ByMoment(const std::vector<demo::HistoryBar>& bars) {
  std::map<std::pair<int, int>, demo::DayBar> map;
  for (const auto& bar : bars) map[{bar.date, bar.time}] = bar.bar;
  return map;
}

std::pair<int, int> MomentOf(const StoredBar& bar) {
  return {static_cast<int>(bar.date), static_cast<int>(bar.time)};
}

float Price(std::int64_t cents) { return static_cast<float>(static_cast<double>(cents) / 100); }

TEST_F(HistoryOverTcp, BringsSampleStoresUpToTheMarket) {
  ASSERT_TRUE(DownloadAll()) << terminal.Stores.CountSelected();
  ASSERT_TRUE(WaitFor([&] { return terminal.Stores.BarState[kIntraday].Date == 1000516; }));
  const metastock::Stores& stores = terminal.Stores;
  for (int i = 1; i <= kDaily; ++i) {
    const auto entry = static_cast<std::size_t>(i);
    SCOPED_TRACE(i);
    const auto days = history.Days(SlotOf(stores.MasterTable[entry].Symbol.bytes()));
    const auto bars = support::ReadBars(directory.Path("diario/F" + std::to_string(i) + ".dat"),
                                        BarKind::daily_open);
    ASSERT_EQ(bars.size(), 68U);
    for (std::size_t n = 0; n < bars.size(); ++n) {
      const demo::HistoryBar& day = days[days.size() - bars.size() + n];
      const demo::DayBar& prices = day.bar;
      EXPECT_EQ(bars[n], (StoredBar{static_cast<float>(day.date), 0, Price(prices.open),
                                    Price(prices.high), Price(prices.low), Price(prices.close),
                                    static_cast<float>(prices.volume)}));
    }
  }
  for (int i = 1; i <= kIntraday; ++i) {
    const auto entry = static_cast<std::size_t>(i);
    SCOPED_TRACE(i);
    const std::size_t slot = SlotOf(stores.EMasterTable[entry].Symbol.bytes());
    const auto parts = ByMoment(history.Parts(slot));
    const auto bars = support::ReadBars(
        directory.Path("intradia/F" + std::to_string(i) + ".dat"),
        stores.EMasterWide[entry] == 1 ? BarKind::intraday_open : BarKind::intraday);
    // A part in which nothing moved has no bar.
    const std::size_t sessions = i == kIntraday ? 27 : 9;
    const auto minutes = static_cast<std::size_t>(stores.EMasterTable[entry].Period);
    EXPECT_LE(bars.size(), sessions * 510 / minutes);
    EXPECT_GE(bars.size(), sessions * 510 / minutes * 85 / 100);
    std::set<float> dates;
    for (const StoredBar& bar : bars) dates.insert(bar.date);
    EXPECT_EQ(dates.size(), sessions);
    EXPECT_EQ(bars.back().date, 1000516.0F);
    std::pair<int, int> last;
    for (const StoredBar& bar : bars) {
      ASSERT_LT(std::exchange(last, MomentOf(bar)), MomentOf(bar));
      const demo::DayBar& prices = parts.at(last);
      EXPECT_EQ(bar.close, Price(prices.close));
      EXPECT_EQ(bar.high, Price(prices.high));
      EXPECT_EQ(bar.low, Price(prices.low));
    }
  }
}

}  // namespace

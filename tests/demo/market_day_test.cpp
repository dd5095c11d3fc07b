#include <cmath>
#include <gtest/gtest.h>
#include <set>

#include "demo/feed.h"
#include "plain_terminal.h"

namespace demo {
namespace {

bool IsShare(const std::string& code) { return code.substr(3, 2) == "  " || code[3] == '.'; }

// Reads a feed in steps and checks after each one what must hold at any moment.
class Watcher {
 public:
  explicit Watcher(const FeedOptions& options) : feed_(options), id_(feed_.Connect()) {
    feed_.Receive(id_, LogIn());
    feed_.Advance(20);
    terminal.Read(feed_.TakeOutput(id_));
    date_ = terminal.dates.back();
    for (const auto& [code, state] : terminal.table) {
      tallies_[code] = {static_cast<std::int64_t>(state.volume), state.cash, state.last};
    }
    for (const auto& [code, state] : terminal.table) feed_.Receive(id_, Line("P:" + code));
    feed_.Receive(id_, Line("INIMER:.CBVL") + Line("INIMER:.PBVL"));
  }

  void Run(int seconds) {
    for (int step = 0; step < seconds * 10 && !testing::Test::HasFailure(); ++step) Step(100);
  }

  PlainTerminal terminal;
  std::map<std::string, std::size_t> quotes_seen;
  std::size_t trades_seen = 0, books_seen = 0;

 private:
  struct Tally {
    std::int64_t shares = 0;
    double cash = 0;
    float last = 0;
  };

  void Step(int ms) {
    terminal.Clear();
    for (int passed = 0; passed < ms; passed += 20) {
      feed_.Advance(20);
      terminal.Read(feed_.TakeOutput(id_));
    }
    EXPECT_TRUE(terminal.faults.empty()) << terminal.faults.front();
    CheckTrades();
    std::set<std::string> touched(terminal.quoted.begin(), terminal.quoted.end());
    touched.insert(terminal.mastered.begin(), terminal.mastered.end());
    for (const std::string& code : touched) CheckState(code);
    for (const std::string& code : terminal.quoted) ++quotes_seen[code];
    for (const std::string& code : terminal.booked) CheckBook(code);
  }

  void CheckTrades() {
    // A new day begins with records that have no volume.
    if (!terminal.dates.empty() && terminal.dates.back() != date_) {
      date_ = terminal.dates.back();
      tallies_.clear();
    }
    for (const ReadTrade& trade : terminal.trades) {
      ++trades_seen;
      EXPECT_TRUE(trade.side == 'C' || trade.side == 'V');
      EXPECT_TRUE(trade.time > 80000 && trade.time < 235900) << trade.time;
      EXPECT_TRUE(trade.buyer > 100 && trade.buyer < 1000) << trade.buyer;
      EXPECT_TRUE(trade.seller > 100 && trade.seller < 1000) << trade.seller;
      EXPECT_GT(trade.shares, 0);
      Tally& tally = tallies_[trade.code];
      tally.shares += trade.shares;
      tally.cash += std::round(static_cast<double>(trade.price) * 100) * trade.shares / 100;
      tally.last = trade.price;
    }
  }

  void CheckState(const std::string& code) {
    const ReadInstrument& state = terminal.table[code];
    SCOPED_TRACE(code);
    EXPECT_LE(state.low, state.last);
    EXPECT_LE(state.last, state.high);
    if (state.date != 0) {
      EXPECT_TRUE(state.date > 990104 && state.date < 1200104) << state.date;
    }
    if (code.starts_with("ST") || code.starts_with("I M")) return;
    EXPECT_GT(state.low, 0);
    if (state.volume > 0) {
      const double average = state.cash / static_cast<double>(state.volume);
      EXPECT_TRUE(average > state.low * 0.999999 && average < state.high * 1.000001) << average;
    }
    if (code.starts_with("I ") && state.previous > 0) {
      EXPECT_NEAR(state.last / state.previous, 1, 0.12);
    }
    if (!IsShare(code) || state.volume == 0) return;
    const Tally& tally = tallies_[code];
    EXPECT_EQ(state.volume, static_cast<float>(tally.shares));
    EXPECT_NEAR(state.cash, tally.cash, 0.01 + tally.cash * 1e-9);
    EXPECT_EQ(state.last, tally.last);
  }

  void CheckBook(const std::string& code) {
    SCOPED_TRACE(code);
    ++books_seen;
    const ReadBook& book = terminal.books[code];
    const float last = terminal.table[code].last;
    EXPECT_LE(book.bids[0], last);
    EXPECT_GE(book.asks[0], last);
    EXPECT_LT(book.bids[0], book.asks[0]);
    for (std::size_t i = 0; i < 5; ++i) {
      EXPECT_EQ(book.bids[i] > 0, book.bid_volumes[i] > 0);
      EXPECT_GT(book.ask_volumes[i], 0);
      if (i == 0) continue;
      EXPECT_TRUE(book.bids[i] < book.bids[i - 1] || book.bids[i] == 0);
      EXPECT_GT(book.asks[i], book.asks[i - 1]);
    }
  }

  Feed feed_;
  int id_;
  float date_ = 0;
  std::map<std::string, Tally> tallies_;
};

TEST(MarketDay, NumbersAgreeThroughTheFirstHour) {
  Watcher watcher({.seed = 7, .notices = true});
  watcher.Run(3600);
  const PlainTerminal& terminal = watcher.terminal;
  EXPECT_GT(watcher.trades_seen, 60'000u);
  EXPECT_GT(watcher.books_seen, 50'000u);
  for (const auto& [code, state] : terminal.table) {
    EXPECT_GT(watcher.quotes_seen[code], 0u) << code;
    if (code != "STSV   " && code != "STSC   ") {
      EXPECT_GT(state.open, 0) << code;
    }
  }
  // Every form of message occurs, and a terminal that reads each step at once loses nothing.
  EXPECT_GT(terminal.plain, 1000);
  EXPECT_GT(terminal.framed, 1000);
  EXPECT_GT(terminal.compressed, 1000);
  EXPECT_GT(terminal.chained, 1000);
  EXPECT_LE(terminal.longest_frame, 8192u);
  EXPECT_LE(terminal.most_frames, 51u);
  EXPECT_LE(terminal.longest_read, 30'000u);
}

TEST(MarketDay, TheNextDayBeginsFromTheClosingPrices) {
  Watcher watcher({.seed = 3, .start_second = SessionClock::kClose - 60});
  watcher.Run(6 * 60 + 50);
  const auto closed = watcher.terminal.table;
  EXPECT_EQ(watcher.terminal.times.empty() ? 173550 : watcher.terminal.times.back(), 173550);
  watcher.Run(15);
  for (const auto& [code, state] : watcher.terminal.table) {
    if (!IsShare(code)) continue;
    EXPECT_EQ(state.date, 1000518);
    EXPECT_EQ(state.previous, closed.at(code).last);
    EXPECT_EQ(state.volume, 0);
    EXPECT_EQ(state.open, 0);
  }
  watcher.Run(120);
  EXPECT_GT(watcher.terminal.table["BVL    "].open, 0);
}

TEST(MarketDay, WeekendsAreSkipped) {
  SessionClock clock(SessionClock::kLast - 60);
  std::vector<int> dates;
  while (dates.size() < 3) {
    if (clock.Step().day) dates.push_back(clock.date());
  }
  EXPECT_EQ(dates, (std::vector{1000518, 1000519, 1000522}));
}

TEST(MarketDay, QuotesComeAtTheWantedRate) {
  for (const int rate : {0, 4, 40, 2000}) {
    Feed feed({.quotes_per_second = rate, .bursts = false, .start_second = 11 * 3600});
    const int id = feed.Connect();
    feed.Receive(id, LogIn());
    feed.Advance(100);
    PlainTerminal terminal;
    terminal.Read(feed.TakeOutput(id));
    terminal.Clear();
    constexpr int kSeconds = 240;
    for (int second = 0; second < kSeconds; ++second) {
      feed.Advance(1000);
      terminal.Read(feed.TakeOutput(id));
    }
    EXPECT_EQ(terminal.times.size(), 240u);
    EXPECT_NEAR(static_cast<double>(terminal.quoted.size()) / kSeconds, rate, rate * 0.1);
  }
}

TEST(MarketDay, DoesNotDependOnWhoLooks) {
  const auto run = [](bool with_guest) {
    Feed feed({.seed = 5});
    if (with_guest) {
      const int guest = feed.Connect();
      feed.Receive(guest, LogIn() + Line("P:BVL    ") + Line("INIMER:.CBVL"));
    }
    feed.Advance(120'000);
    std::vector<std::int64_t> lasts;
    for (std::size_t slot = 0; slot < feed.market().listed(); ++slot) {
      lasts.push_back(feed.market().instruments()[slot].last);
    }
    return lasts;
  };
  EXPECT_EQ(run(true), run(false));
}

TEST(MarketDay, ThousandsOfNumberedSharesLoadAndTrade) {
  Feed feed({.quotes_per_second = 20'000, .extra_instruments = 4800});
  const int id = feed.Connect();
  feed.Receive(id, LogIn());
  PlainTerminal terminal;
  for (int step = 0; step < 50 * 40; ++step) {
    feed.Advance(20);
    terminal.Read(feed.TakeOutput(id));
  }
  EXPECT_EQ(terminal.faults, std::vector<std::string>());
  EXPECT_EQ(terminal.table.size(), 4800 + 176u);
  for (const auto& [code, state] : terminal.table) EXPECT_GE(state.name.front(), '0') << code;
  EXPECT_GT(terminal.trades.size(), 100'000u);
}

}  // namespace
}  // namespace demo

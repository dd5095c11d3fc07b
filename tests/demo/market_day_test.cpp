#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

#include "demo/catalogue.h"
#include "session.h"

namespace demo {
namespace {

bool IsShare(const std::string& code) { return code.substr(3, 2) == "  " || code[3] == '.'; }

// What terminals take for a trade.
bool IsHour(float time) { return time > 80000 && time < 235900; }
bool IsMember(int number) { return number > 100 && number < 1000; }

// Reads a feed in steps and checks after each one what must hold at any moment.
class Watcher : public Session {
 public:
  explicit Watcher(const FeedOptions& options) : Session(options) {
    Send(LogIn());
    date_ = terminal.dates.back();
    for (const auto& [code, state] : terminal.table) {
      tallies_[code] = {static_cast<std::int64_t>(state.volume), state.cash, state.last};
      feed.Receive(id, Line("P:" + code));
    }
    feed.Receive(id, Line("INIMER:.CBVL") + Line("INIMER:.PBVL"));
  }

  void Run(int seconds) {
    for (int step = 0; step < seconds * 10 && !testing::Test::HasFailure(); ++step) Step(100);
  }

  std::map<std::string, std::size_t> quotes_seen, books_seen;
  std::size_t trades_seen = 0, late = 0, one_sided = 0, shallow = 0, whole = 0;
  std::map<char, std::size_t> sides;
  std::size_t strays = 0;  // what terminals refuse, and why
  std::set<float> bad_hours;
  std::set<int> bad_buyers, bad_sellers;

 private:
  struct Tally {
    std::int64_t shares = 0;
    double cash = 0;
    float last = 0, time = 0;
  };

  void Step(int ms) {
    terminal.Clear();
    Wait(ms, 20);
    EXPECT_TRUE(terminal.faults.empty()) << terminal.faults.front();
    // A new day begins with records that have no volume.
    if (!terminal.dates.empty() && terminal.dates.back() != date_) {
      date_ = terminal.dates.back();
      tallies_.clear();
    }
    for (const ReadTrade& trade : terminal.trades) {
      if (!IsHour(trade.time)) bad_hours.insert(trade.time);
      if (!IsMember(trade.buyer)) bad_buyers.insert(trade.buyer);
      if (!IsMember(trade.seller)) bad_sellers.insert(trade.seller);
      const bool counts = IsHour(trade.time) && IsMember(trade.buyer) && IsMember(trade.seller);
      counts ? Count(trade) : void(++strays);
    }
    std::set<std::string> touched(terminal.quoted.begin(), terminal.quoted.end());
    touched.insert(terminal.mastered.begin(), terminal.mastered.end());
    for (const std::string& code : touched) CheckState(code);
    for (const std::string& code : terminal.quoted) ++quotes_seen[code];
    for (const std::string& code : terminal.booked) CheckBook(code);
  }

  void Count(const ReadTrade& trade) {
    ++trades_seen;
    ++sides[trade.side];
    EXPECT_GE(trade.time, 90000);
    EXPECT_GT(trade.shares, 0);
    Tally& tally = tallies_[trade.code];
    if (trade.time < tally.time) ++late;
    tally.time = std::max(tally.time, trade.time);
    tally.shares += trade.shares;
    tally.cash += std::round(static_cast<double>(trade.price) * 100) * trade.shares / 100;
    tally.last = trade.price;
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
    ++books_seen[code];
    const ReadBook& book = terminal.books[code];
    const float last = terminal.table[code].last, bid = book.bids[0], ask = book.asks[0];
    EXPECT_LE(bid, last);
    if (ask > 0) {
      EXPECT_GE(ask, last);
      EXPECT_LT(bid, ask);
    }
    const auto check = [](const auto& prices, const auto& volumes, float up) {
      for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(prices[i] > 0, volumes[i] > 0);
        if (i == 0 || prices[i] == 0) continue;
        EXPECT_GT(prices[i - 1], 0);
        EXPECT_GT(up * prices[i], up * prices[i - 1]);
      }
    };
    check(book.bids, book.bid_volumes, -1);
    check(book.asks, book.ask_volumes, 1);
    one_sided += bid == 0 || ask == 0;
    shallow += bid > 0 && ask > 0 && (book.bids[4] == 0 || book.asks[4] == 0);
    whole += IsShare(code) && bid > 0 && bid == std::floor(bid) && ask == std::floor(ask);
  }

  float date_ = 0;
  std::map<std::string, Tally> tallies_;
};

TEST(MarketDay, NumbersAgreeThroughTheFirstHour) {
  Watcher watcher({.seed = 7, .notices = true});
  watcher.Run(6 * 60);
  // What a ticket must cope with, seldom but soon.
  const auto between = [](std::size_t number, std::size_t low, std::size_t high) {
    EXPECT_TRUE(number >= low && number <= high) << number;
  };
  between(watcher.late, watcher.trades_seen / 100, watcher.trades_seen / 25);
  between(watcher.strays, 10, 50);
  EXPECT_EQ(watcher.bad_hours, (std::set<float>{0, 80000, 235900}));
  EXPECT_EQ(watcher.bad_buyers, (std::set{-1, 100, 1000}));
  EXPECT_EQ(watcher.bad_sellers, (std::set{0, 100, 1000}));
  EXPECT_EQ(watcher.sides.size(), 4u);
  EXPECT_EQ(watcher.sides[' '], 132u);  // each share's opening
  between(watcher.sides['A'], 20, watcher.trades_seen / 50);
  EXPECT_GT(watcher.one_sided, 100u);
  EXPECT_GT(watcher.shallow, 1000u);
  EXPECT_GT(watcher.whole, 100u);
  for (const char* busy : {"BVL    ", "TLB    ", "LCR    "}) {
    between(watcher.books_seen[busy], 2 * 6 * 60, 12 * 6 * 60);
  }

  watcher.Run(54 * 60);
  const PlainTerminal& terminal = watcher.terminal;
  EXPECT_GT(watcher.trades_seen, 60'000u);
  for (const auto& [code, state] : terminal.table) {
    EXPECT_GT(watcher.quotes_seen[code], 0u) << code;
    if (code != "STSV   " && code != "STSC   ") {
      EXPECT_GT(state.open, 0) << code;
    }
  }
  // Every form of message occurs, and a terminal that reads each step at once loses nothing.
  EXPECT_GT(std::min({terminal.plain, terminal.framed, terminal.compressed, terminal.chained}),
            1000);
  EXPECT_LE(terminal.longest_frame, 8192u);
  EXPECT_LE(terminal.most_frames, 51u);
  EXPECT_LE(terminal.longest_read, 30'000u);
}

// So an alarm that is set where the price stands goes off at once, whichever way it looks.
TEST(MarketDay, BusySharesPassTheirPriceAgainWithinSeconds) {
  Session session({.seed = 11});
  session.Send(LogIn());
  session.Wait(90'000, 1000);
  PlainTerminal& terminal = session.terminal;
  std::size_t met = 0, busy = 0;
  for (int round = 0; round < 20; ++round) {
    const auto before = terminal.table;
    std::set<std::string> above, below;
    for (int step = 0; step < 50 * 15; ++step) {
      terminal.Clear();
      session.Wait(20);
      for (const std::string& code : terminal.quoted) {
        const float now = terminal.table[code].last, then = before.at(code).last;
        if (now >= then) above.insert(code);
        if (now <= then) below.insert(code);
      }
    }
    for (const catalogue::Share& share : catalogue::Shares()) {
      if (share.activity < 20) continue;
      const std::string code = std::string(share.code) + std::string(7 - share.code.size(), ' ');
      met += above.count(code) + below.count(code);
      busy += 2;
    }
  }
  EXPECT_GT(met * 10, busy * 9) << met << " of " << busy;
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
    Session session({.quotes_per_second = rate, .bursts = false, .start_second = 11 * 3600});
    session.Send(LogIn());
    session.Wait(80);
    session.terminal.Clear();
    session.Wait(240'000, 1000);
    EXPECT_EQ(session.terminal.times.size(), 240u);
    EXPECT_NEAR(static_cast<double>(session.terminal.quoted.size()) / 240, rate, rate * 0.1);
  }
}

TEST(MarketDay, DoesNotDependOnWhoLooks) {
  const auto run = [](std::string_view requests) {
    Session session({.seed = 5});
    session.feed.Receive(session.id, requests);
    session.feed.Advance(120'000);
    std::vector<std::int64_t> lasts;
    for (std::size_t slot = 0; slot < session.feed.market().listed(); ++slot) {
      lasts.push_back(session.feed.market().instruments()[slot].last);
    }
    return lasts;
  };
  EXPECT_EQ(run(LogIn() + Line("P:BVL    ") + Line("INIMER:.CBVL")), run(""));
}

TEST(MarketDay, ThousandsOfNumberedSharesLoadAndTrade) {
  Session session({.quotes_per_second = 20'000, .extra_instruments = 4800});
  session.Send(LogIn());
  session.Wait(40'000, 20);
  EXPECT_EQ(session.terminal.faults, std::vector<std::string>());
  EXPECT_EQ(session.terminal.table.size(), 4800 + 176u);
  for (const auto& [code, state] : session.terminal.table) EXPECT_GE(state.name.front(), '0');
  EXPECT_GT(session.terminal.trades.size(), 100'000u);
}

}  // namespace
}  // namespace demo

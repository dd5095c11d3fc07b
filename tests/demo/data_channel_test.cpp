#include "demo/data_channel.h"

#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <tuple>

#include "metastock/history_rows.h"
#include "metastock/reply_reader.h"

namespace demo {
namespace {

using metastock::Bar;
using metastock::Reply;
using Moment = std::pair<int, int>;  // date, time

/// A terminal that fetches the history of one share after the other, keeping the rows that it
/// would store.
struct Downloader {
  explicit Downloader(const Market& market) : history(market, 1) {}

  std::optional<Reply> Ask(const std::string& text) {
    for (int tries = 0; tries < 2; ++tries) {
      channel->Receive(text + "\xFF\xFE");
      if (const auto answer = channel->Answer()) {
        EXPECT_LT(answer->size(), 65536u);
        ++replies;
        return metastock::ReplyReader().Recibir(*answer);
      }
      ++outages;
      channel.emplace(history, outages_due);
    }
    return std::nullopt;
  }

  /// Fetches all from `next` on; a bad row and the end of a long reply make it ask again.
  void Fetch(const std::string& kind, const std::string& code, Moment next) {
    rows.clear();
    for (bool again = true; again && replies < 2000;) {
      std::string time = std::to_string(1'000'000 + next.second).substr(1);
      const auto reply = Ask(kind + code + std::to_string(next.first) + ":" + time);
      ASSERT_TRUE(reply);
      EXPECT_EQ(reply->code.bytes(), code);
      again = reply->kind != Reply::Kind::daily ? StoreParts(reply->rows, next)
                                                : StoreDays(reply->rows, next);
    }
  }

  /// Whether to ask again, from `last` on. That nothing is left is a reply without rows.
  bool StoreParts(std::string_view text, Moment& last) {
    const std::size_t count = text.size() / metastock::kIntradayRow;
    int fillers = 0;
    for (std::size_t i = 1; i < count; ++i) {
      const Bar bar = metastock::DecodeIntraday(text.substr(i * metastock::kIntradayRow));
      fillers = metastock::IsFiller(bar) ? fillers + 1 : 0;
      if (fillers == 3) {
        last.second += 100;
        return true;
      }
      if (fillers > 0) continue;
      if (!metastock::IsValidIntraday(bar)) return true;
      last = {static_cast<int>(bar.Date), static_cast<int>(bar.Time)};
      EXPECT_TRUE(rows.try_emplace(last, bar).second);
    }
    return count > 1900;
  }
  bool StoreDays(std::string_view text, Moment& last) {
    for (; text.size() >= metastock::kDailyRow; text.remove_prefix(metastock::kDailyRow)) {
      if (metastock::IsEndMarker(text)) return false;
      const Bar bar = metastock::DecodeDaily(text);
      if (!metastock::IsValidDaily(bar)) return true;
      last = {static_cast<int>(bar.Date), static_cast<int>(bar.Time)};
      rows[last] = bar;
    }
    return false;
  }

  /// What is there are the bars later than `after`.
  void ExpectBars(std::vector<HistoryBar> bars, Moment after) const {
    std::erase_if(bars, [&](const HistoryBar& bar) {
      return std::tie(bar.date, bar.time) <= std::tie(after.first, after.second);
    });
    ASSERT_EQ(rows.size(), bars.size());
    const auto price = [](std::int64_t cents) { return static_cast<double>(cents) / 100; };
    auto row = rows.begin();
    for (const auto& [date, time, prices] : bars) {
      EXPECT_EQ(row->first, Moment(date, time));
      const Bar& bar = row++->second;
      EXPECT_FLOAT_EQ(bar.Open, static_cast<float>(price(prices.open)));
      EXPECT_FLOAT_EQ(bar.High, static_cast<float>(price(prices.high)));
      EXPECT_FLOAT_EQ(bar.Low, static_cast<float>(price(prices.low)));
      EXPECT_FLOAT_EQ(bar.Close, static_cast<float>(price(prices.close)));
      EXPECT_EQ(bar.Volume, static_cast<float>(prices.volume));
    }
  }

  History history;
  Outages outages_due;
  std::optional<DataChannel> channel{std::in_place, history, outages_due};
  std::map<Moment, Bar> rows;
  int replies = 0, outages = 0;
};

TEST(DataChannel, EveryShareCanBeFetchedWholeInSpiteOfAllThatGoesWrong) {
  const Market market({.start_second = 12 * 3600});
  Downloader terminal(market);
  for (const catalogue::Share& share : catalogue::Shares()) {
    SCOPED_TRACE(share.code);
    const std::size_t slot = *market.Find(share.code);
    const std::string code(market.instruments()[slot].code.bytes());
    for (const Moment& from : {Moment{1000417, 91234}, {1000516, 170000}, {1000517, 115000}}) {
      terminal.Fetch("DATA:", code, from);
      terminal.ExpectBars(terminal.history.Parts(slot), from);
    }
    terminal.Fetch("DATD:", code, Moment{991230, 0});
    terminal.ExpectBars(terminal.history.Days(slot), {991230, 0});
  }
  EXPECT_GT(terminal.outages, 5);
  const auto asked_once = 4 * catalogue::Shares().size();
  EXPECT_GT(static_cast<std::size_t>(terminal.replies), asked_once + 60) << "what was asked again";
}

TEST(DataChannel, WhatIsUnknownGetsAnEndAtOnceAndYearsOfTwoDigitsAreUnderstood) {
  const Market market({});
  Downloader terminal(market);
  terminal.Fetch("DATA:", "NADIE  ", Moment{1000510, 90000});
  terminal.Fetch("DATA:", "I IB   ", Moment{1000510, 90000});
  terminal.Fetch("DATD:", "NADIE  ", Moment{1000510, 0});
  terminal.Fetch("DATD:", "BVL    ", Moment{1000517, 0});
  EXPECT_EQ(terminal.replies, 4);
  EXPECT_TRUE(terminal.rows.empty());
  for (const auto& [asked, first] : {Moment{515, 1000515}, {991231, 991231}, {0, 990104}}) {
    terminal.Fetch("DATD:", "BCM    ", Moment{asked, 0});
    EXPECT_EQ(terminal.rows.begin()->first.first, first);
  }
}

TEST(DataChannel, AnyBytesAreBoundedInWhatTheyBring) {
  const Market market({});
  Downloader terminal(market);
  const std::string_view pieces[] = {"DATA:",       "DATD:",           "BVL    ", "\xFF\xFE",
                                     "\xFF",        "1000510",         ":",       "-1",
                                     "99999999999", "\xFF\xFE\xFF\xFE"};
  Random random(5);
  for (int round = 0; round < 100; ++round) {
    DataChannel channel(terminal.history, terminal.outages_due);
    for (int i = random.Below(900); i > 0; --i) channel.Receive(pieces[random.Below(10)]);
    channel.Receive(std::string(10'000, 'x'));
    int answers = 0;
    while (channel.IsAsked() && channel.Answer()) ++answers;
    ASSERT_LE(answers, 100);
  }
}

}  // namespace
}  // namespace demo

#include "metastock/history_rows.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

using namespace metastock;  // NOLINT

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();

/// High, low, close, and the date.
using Prices = std::array<float, 4>;

TEST(HistoryRows, RepairsARowFromTheOneBefore) {
  const struct {
    float lowprev;
    Prices row, repaired;
  } kCases[] = {
      {0, {12, 10, 11, 990105}, {12, 10, 11, 990105}},
      {21, {12, 10, 11, 990105}, {12, 21, 21, 990105}},  // the low of before, above the close
      {20, {12, 10, 11, 990105}, {12, 10, 11, 990105}},  // twice as much isn't enough
      {0, {12, 5, 11, 990105}, {12, 11, 11, 990105}},    // low below half the high: the close
      {0, {12, 5, 2, 990105}, {12, 12, 12, 990105}},     // the close as well: the high
      {0, {12, 10, 9, 990105}, {12, 10, 10, 990105}},
      {0, {12, 10, 11, 979999}, {12, 10, 11, 1979999}},
      {0, {12, 10, 11, 980000}, {12, 10, 11, 980000}},
      {0, {12, 10, 11, 1000426}, {12, 10, 11, 1000426}},
  };
  for (const auto& test : kCases) {
    Bar bar{.Date = test.row[3], .High = test.row[0], .Low = test.row[1], .Close = test.row[2]};
    float lowprev = test.lowprev;
    Repair(bar, lowprev);
    EXPECT_EQ((Prices{bar.High, bar.Low, bar.Close, bar.Date}), test.repaired) << test.row[1];
    EXPECT_EQ(lowprev, bar.Low);
  }
}

TEST(HistoryRows, TellsValidRows) {
  const struct {
    float date, time;
    bool intraday, daily;
  } kCases[] = {
      {970101, 0, true, true},       {970100, 0, false, true},   {1091231, 245959, true, true},
      {1091232, 0, false, false},    {1000426, -1, false, true}, {1000426, 245960, false, true},
      {1000426, kNone, false, true}, {kNone, 0, false, false},   {101, 0, false, true},
      {100, 0, false, false},
  };
  for (const auto& test : kCases) {
    const Bar bar{.Date = test.date, .Time = test.time};
    EXPECT_EQ(IsValidIntraday(bar), test.intraday) << test.date << " " << test.time;
    EXPECT_EQ(IsValidDaily(bar), test.daily) << test.date << " " << test.time;
  }
}

TEST(HistoryRows, FillsZerosOnlyWhereSomethingElseIsMissing) {
  const auto filled = [](Bar bar) {
    const bool complete = Complete(bar);
    return std::vector<float>{bar.Open, bar.High, bar.Low, bar.Volume, complete ? 1.F : 0.F};
  };
  const Bar whole{.Date = 1, .Open = 0, .High = 3, .Low = 2, .Close = 2.5F, .Volume = 7};
  EXPECT_EQ(filled(whole), (std::vector<float>{0, 3, 2, 7, 1}));  // the open may be 0
  Bar low = whole;
  low.Low = 0;
  EXPECT_EQ(filled(low), (std::vector<float>{2.5F, 3, 2.5F, 7, 1}));
  Bar volume = whole;
  volume.Volume = -1;
  EXPECT_EQ(filled(volume), (std::vector<float>{2.5F, 3, 2, 0, 1}));
  Bar close = whole;
  close.Close = close.High = 0;
  EXPECT_EQ(filled(close), (std::vector<float>{0, 0, 2, 7, 0}));
}

TEST(HistoryRows, ConvertsPesetasOfSharesUntil1998) {
  const auto close = [](std::string_view code, float date) {
    Bar bar{.Date = date, .Close = 3000};
    ConvertPesetas(store::Codigo(code), bar);
    return bar.Close;
  };
  EXPECT_EQ(close("TEF", 981230), static_cast<float>(3000 / 166.386));
  EXPECT_EQ(close("TEF  X", 981230), static_cast<float>(3000 / 166.386));  // only two are looked at
  for (const auto& [code, date] : std::vector<std::pair<std::string_view, float>>{
           {"TEF", 990101}, {"TEFX", 981230}, {"TEF X", 981230}, {"TE", 981230}}) {
    EXPECT_EQ(close(code, date), 3000) << code;
  }
}

TEST(HistoryRows, LeavesOutWhatIsWorthNextToNothing) {
  // As a float it is a little above 0.1.
  EXPECT_TRUE(IsWorthStoring({.Open = 0.09F, .High = 0.1F, .Low = 0.09F, .Close = 0.09F}));
  EXPECT_FALSE(IsWorthStoring({.Open = 0.09F, .High = 0.09F, .Low = 0, .Close = 0.09F}));
}

}  // namespace

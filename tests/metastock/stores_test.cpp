#include "metastock/stores.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <sys/stat.h>

#include "metastock/mbf.h"
#include "support/bytes.h"
#include "support/meta_store.h"
#include "support/temp_dir.h"

namespace {

using namespace metastock;  // NOLINT
using support::BarKind, support::I16, support::StoredBar, support::StoredEntry;

struct StoresTest : testing::Test {
  StoresTest() { Point(dir.path()); }
  void Point(const std::string& path) {
    stores.MasterDir = stores.EMasterDir = base::FixedText<50>::FromUtf8(path);
  }
  void LoadDaily(const std::vector<StoredEntry>& entries) {
    support::WriteDailyStore(dir.path(), entries);
    stores.LoadMasterDir();
  }
  // Date and close of the last bar of each daily entry.
  [[nodiscard]] std::vector<std::pair<float, float>> Last() const {
    std::vector<std::pair<float, float>> last;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(stores.MasterCount); ++i) {
      last.emplace_back(stores.DailyLast[i].Date, stores.DailyLast[i].Close);
    }
    return last;
  }

  support::TempDir dir;
  Stores stores;
};

// `n` bars; all their numbers begin with `seed`.
std::vector<StoredBar> Days(int n, float seed) {
  std::vector<StoredBar> bars;
  for (int i = 0; i < n; ++i) {
    const float more = static_cast<float>(i);
    bars.push_back({1000400 + seed + more, 93500 + 100 * more, seed + 0.25F + more,
                    seed + 0.5F + more, seed + 0.125F + more, seed + more, 1000 * seed + more});
  }
  return bars;
}

using Lasts = std::vector<std::pair<float, float>>;

TEST_F(StoresTest, DailyEntriesCarryDatesAndLastBar) {
  StoredEntry other{.file = 2, .name = "\xD1\x01", .bars = Days(2, 20), .time_frame = 'W'};
  other.symbol = std::string("SAN\0XYZ", 7);
  LoadDaily({{.file = 1, .symbol = "TEF", .name = "TELEFONICA", .bars = Days(3, 10)}, other});
  ASSERT_EQ(stores.MasterCount, 2);
  const MasterEntry& first = stores.MasterTable[1];
  EXPECT_TRUE(first.Symbol.bytes() == "TEF    " && first.Name.trimmed() == "TELEFONICA");
  EXPECT_TRUE(first.FirstDate == 1000410 && first.LastDate == 1000412 && first.FileNumber == 1);
  const DailyBar& last = stores.DailyLast[2];
  EXPECT_TRUE(last.Date == 1000421 && last.High == 21.5F && last.Low == 21.125F);
  EXPECT_TRUE(last.Close == 21 && last.Volume == 20001);
  const MasterEntry& second = stores.MasterTable[2];
  EXPECT_TRUE(second.TimeFrame == 'W' && second.Name.trimmed() == "\xD1\x01");
  EXPECT_EQ(stores.MasterCodes[2], store::WholeCode(store::Codigo("SAN")));
  stores.MasterSelected[1] = stores.EMasterSelected[1] = 1;
  EXPECT_EQ(stores.CountSelected(), 1);
}

TEST_F(StoresTest, NarrowDailyEntriesShowTheLastWideBarRead) {
  LoadDaily({{.file = 1, .bars = Days(3, 10), .open = false}, {.file = 2, .bars = Days(3, 20)}});
  EXPECT_TRUE(stores.MasterWide[1] == 0 && stores.MasterWide[2] == 1);
  EXPECT_EQ(Last(), (Lasts{{0, 0}, {1000422, 22}}));
  stores.LoadMasterDir();
  EXPECT_EQ(Last(), (Lasts{{1000422, 22}, {1000422, 22}}));
  // With slack behind its last bar it counts as a wide one.
  dir.Write("F1.DAT", support::DataFile(BarKind::daily, Days(3, 10)) + "?");
  stores.LoadMasterDir();
  EXPECT_EQ(stores.MasterWide[1], 1);
}

TEST_F(StoresTest, WidthIsAskedByFileNumberAndKeptByPosition) {
  LoadDaily({{.file = 3, .bars = Days(3, 10)},
             {.file = 1, .bars = Days(3, 20), .open = false},
             {.file = 2, .bars = Days(3, 30)}});
  // The narrow file is read as a wide one: its second wide bar, its fourth isn't there.
  const std::string torn = dir.Read("F1.DAT").substr(24, 24);
  const std::pair garbled(FromMbf(torn), FromMbf(torn.substr(16)));
  EXPECT_EQ(Last(), (Lasts{{0, 0}, garbled, garbled}));
  stores.LoadMasterDir();
  EXPECT_EQ(Last(), (Lasts{{1000412, 12}, garbled, garbled}));
}

TEST_F(StoresTest, FilesWithoutTheBarLeaveWhatWasReadBefore) {
  const std::string wide = support::DataFile(BarKind::daily_open, Days(3, 20));
  const auto with = [&](std::int16_t last) { return I16(9) + I16(last) + wide.substr(4); };
  const std::pair<float, float> before{1000412, 12};
  // The last: its second bar isn't there. A file without a header goes by the number of the one
  // before.
  const std::pair<std::string, std::pair<float, float>> cases[] = {
      {with(3), {1000421, 21}}, {with(1), before},           {with(-32768), before}, {"", before},
      {"abc", before},          {with(32767), {1000420, 20}}};
  for (const auto& item : cases) {
    LoadDaily({{.file = 1, .bars = Days(3, 10)}, {.file = 2}});
    dir.Write("F2.DAT", item.first);
    stores.LoadMasterDir();
    EXPECT_EQ(Last()[1], item.second) << &item - cases;
  }
}

TEST_F(StoresTest, IntradayEntriesSeedTheStateOfTheirBar) {
  std::vector<StoredEntry> entries{{.file = 7, .bars = Days(3, 10), .inicio = 93000, .fin = 173500},
                                   {.file = 300, .symbol = "SAN45678", .bars = Days(2, 20)},
                                   {.file = -4, .period = -5}};
  entries[1].open = false;
  entries[1].period = 0;
  support::WriteIntradayStore(dir.path(), entries);
  dir.Write("F7.DAT", support::DataFile(BarKind::intraday_open, Days(3, 10)) + "?");
  dir.Write("F-4.DAT", std::string(28, '\0'));
  stores.LoadEMasterDir();
  ASSERT_EQ(stores.EMasterCount, 3);
  EXPECT_EQ(stores.EMasterWide[1] * 100 + stores.EMasterWide[2] * 10 + stores.EMasterWide[3], 101);
  const auto& wide = stores.BarState[1];
  EXPECT_TRUE(wide.Date == 1000412 && wide.Time == 93700 && wide.Close == 12 && wide.High == 12.5F);
  EXPECT_TRUE(wide.Low == 12.125F && wide.VolumeBase == 10002 && wide.VolumeNow == 0);
  EXPECT_TRUE(wide.Open == 93000 && wide.Aux == 173500 && wide.Slot == (9 * 60 + 37) / 5);
  const auto& narrow = stores.BarState[2];
  EXPECT_TRUE(narrow.Date == 1000421 && narrow.High == 21.5F && narrow.Slot == 0);
  const auto& table = stores.EMasterTable;
  EXPECT_TRUE(table[1].LastDate == 1000412 && table[2].Period == 1 && table[3].Period == -5);
  EXPECT_EQ(stores.EMasterCodes[2], store::WholeCode(store::Codigo("SAN4567")));

  const struct {
    int file;
    std::int64_t record;
    float date, open;
  } reads[] = {{7, 2, 1000410, 10.25F},
               {300, 2, 1000420, 20},
               {300, 99, 1000420, 20},
               {7, -1, 1000410, 10.25F},
               {-4, 2, 0, 0}};
  for (const auto& read : reads) {
    stores.ReadIntradayBar(read.file, read.record);
    EXPECT_TRUE(stores.IntradayWork.Date == read.date && stores.IntradayWork.Open == read.open);
  }
}

TEST_F(StoresTest, CountsAreHeldToTheTablesAndToTheFile) {
  std::vector<StoredEntry> many;
  for (int i = 0; i < 600; ++i) many.push_back({.file = i % 4, .symbol = std::to_string(i)});
  dir.Write("MASTER", support::MasterFile(many));
  dir.Write("EMASTER", support::EMasterFile(many));
  stores.LoadMasterDir();
  stores.LoadEMasterDir();
  EXPECT_TRUE(stores.MasterCount == 500 && stores.EMasterCount == 500);
  EXPECT_EQ(stores.MasterTable[500].Symbol.trimmed(), "499");
  EXPECT_EQ(stores.EMasterTable[500].Symbol.bytes().substr(0, 4), std::string("499\0", 4));
  const std::string daily = support::MasterFile({{.file = 9, .symbol = "A"}, {.file = 8}});
  // The last: its second entry isn't there whole.
  const std::pair<std::string, int> cases[] = {{I16(-1) + daily.substr(2), 0},
                                               {I16(-32768) + daily.substr(2), 0},
                                               {daily.substr(0, 39), 0},
                                               {daily.substr(0, std::size_t{53} * 2 + 42), 2}};
  for (const auto& [file, count] : cases) {
    dir.Write("MASTER", file);
    stores.LoadMasterDir();
    EXPECT_EQ(stores.MasterCount, count);
  }
  EXPECT_TRUE(stores.MasterTable[1].FileNumber == 9 && stores.MasterTable[2].FileNumber == 1);
}

TEST_F(StoresTest, DirectoriesAreCutAtABlank) {
  const std::string full(50, 'x'), almost(49, 'x');
  const struct {
    std::string text, single, twice;
  } cases[] = {{"/a/b c  d", "/a/b", "/a/b c"},
               {"/\xD1", "/\xC3\x91", "/\xC3\x91"},
               {full + "y", full, full},
               {almost, almost, almost},
               {"", "", ""},
               {"//", "", ""},
               {std::string("/tmp\0", 5), "", ""}};
  for (const auto& item : cases) {
    const base::FixedText<50> text(item.text);
    EXPECT_EQ(DirectoryOf(text, Cut::single_blank), item.single);
    EXPECT_EQ(DirectoryOf(text, Cut::double_blank), item.twice);
  }
  // The daily loader reaches a shorter path than the intraday one.
  std::filesystem::create_directory(dir.Path("a b"));
  support::WriteDailyStore(dir.Path("a b"), {{.file = 1}});
  support::WriteIntradayStore(dir.Path("a b"), {{.file = 1}});
  Point(dir.Path("a b"));
  stores.LoadMasterDir();
  stores.LoadEMasterDir();
  EXPECT_TRUE(stores.MasterCount == 0 && stores.EMasterCount == 1);
  EXPECT_EQ(stores.IntradayFile(1, Cut::double_blank), dir.Path("a b/F1.DAT"));
  EXPECT_EQ(stores.IntradayFile(1, Cut::single_blank), dir.Path("a") + "/F1.dat");
}

TEST_F(StoresTest, FilesAreFoundWhateverTheirCaseAndMadeWhereMissing) {
  dir.Write("master", support::MasterFile({{.file = 1}, {.file = 2}, {.file = 3}}));
  dir.Write("f1.dAT", support::DataFile(BarKind::daily_open, Days(2, 10)));
  dir.Write("F2.dat", "exact");
  dir.Write("F2.DAT", "other");
  stores.LoadMasterDir();
  EXPECT_EQ(stores.DailyLast[1].Close, 11);
  EXPECT_EQ(stores.DailyFile(1, Cut::single_blank), dir.Path("f1.dAT"));
  EXPECT_EQ(stores.DailyFile(2, Cut::double_blank), dir.Path("F2.dat"));
  EXPECT_TRUE(dir.Has("F3.dat") && dir.Read("F3.dat").empty() && !dir.Has("MASTER"));
  // Another directory without a load, one without files, none at all.
  std::filesystem::create_directory(dir.Path("x"));
  Point(dir.Path("x"));
  EXPECT_EQ(stores.DailyFile(1, Cut::single_blank), dir.Path("x/F1.dat"));
  stores.LoadMasterDir();
  stores.LoadEMasterDir();
  EXPECT_EQ(stores.MasterCount, 0);
  EXPECT_TRUE(std::filesystem::is_empty(dir.Path("x")));
  Point("/");
  EXPECT_EQ(stores.DailyFile(1, Cut::single_blank), "");
}

TEST_F(StoresTest, WhatIsNoFileIsLeftAlone) {
  dir.Write("MASTER", support::MasterFile({{.file = 1}, {.file = 2}, {.file = 3}}));
  dir.Write("F1.DAT", support::DataFile(BarKind::daily_open, Days(3, 10)));
  ASSERT_EQ(mkfifo(dir.Path("F2.DAT").c_str(), 0600), 0);
  std::filesystem::create_directory(dir.Path("F3.DAT"));
  stores.LoadMasterDir();
  EXPECT_EQ(stores.DailyFile(2, Cut::single_blank) + stores.DailyFile(3, Cut::single_blank), "");
  EXPECT_EQ(Last()[2], std::pair(1000412.0F, 12.0F));
  std::filesystem::remove(dir.Path("F3.DAT"));
  dir.Write("f3.dat", support::DataFile(BarKind::daily_open, Days(3, 30)));
  stores.LoadMasterDir();
  EXPECT_EQ(Last()[2], std::pair(1000432.0F, 32.0F));
  std::filesystem::remove(dir.Path("MASTER"));
  ASSERT_EQ(mkfifo(dir.Path("MASTER").c_str(), 0600), 0);
  stores.LoadMasterDir();
  EXPECT_EQ(stores.MasterCount, 0);
}

TEST(SlotOf, ReadsHoursAndMinutesFromTheText) {
  const struct {
    float time;
    std::int16_t period, slot;
  } cases[] = {{93000, 5, 114}, {123456, 1, 754}, {95959, 1, 599},
               {99999, 1, 639}, {100000, 1, 600}, {5959, 1, 395},
               {959, 5, 119},   {0, 5, 0},        {7, 1, 420},
               {93000, 0, 0},   {-93000, 1, 93},  {1e20F, 1, 62},
               {1e9F, 1, 600},  {93000, -7, -81}, {std::numeric_limits<float>::quiet_NaN(), 5, 0}};
  for (const auto& item : cases) EXPECT_EQ(SlotOf(item.time, item.period), item.slot) << item.time;
}

}  // namespace

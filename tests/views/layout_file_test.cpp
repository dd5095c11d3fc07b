#include "views/layout_file.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"
#include "views/column_layout.h"

namespace {

using support::I16;

class LayoutFile : public testing::Test {
 protected:
  LayoutFile() {
    grid.set_cols(2);
    grid.set_width(0, 500);
    grid.set_width(1, 600);
    window.set_rect({1, 2, 3000, 4000});
  }

  void Read(int area_height = 8000) {
    views::ReadLayout(dir, "X.POS", 9000, area_height, window, grid);
  }

  support::MemoryPlatform outside;
  support::TempDir temp;
  base::ProgramDir dir{temp.path()};
  platform::Window window{outside};
  platform::Grid grid;
};

TEST_F(LayoutFile, ComesBackAsItWasWritten) {
  views::WriteLayout(dir, "X.POS", window, grid);
  EXPECT_EQ(temp.Read("X.POS"), I16(4000) + I16(3000) + I16(1) + I16(2) + I16(500) + I16(600));
  window.set_rect({});
  grid.set_width(0, 1);
  Read();
  EXPECT_EQ(window.rect(), (platform::Rect{1, 2, 3000, 4000}));
  EXPECT_EQ(grid.width(0), 500);
}

TEST_F(LayoutFile, TakesOnlyWhatMakesSense) {
  struct Case {
    std::string file;
    platform::Rect rect;
    int first, second;
  };
  const platform::Rect design{1, 2, 3000, 4000};
  const Case cases[]{
      {I16(2000) + I16(2000) + I16(9) + I16(9) + I16(700), design, 500, 600},  // 10 bytes
      {I16(2000) + I16(2500) + I16(9) + I16(8) + I16(700) + "x", {9, 8, 2500, 2000}, 700, 600},
      {I16(999) + I16(2000) + I16(9) + I16(9) + I16(0) + I16(15001), design, 0, 600},
      {I16(2000) + I16(-1) + I16(9) + I16(9) + I16(-1) + I16(15000), design, 500, 15000},
      {I16(2000) + I16(2000) + I16(-9) + I16(32767) + I16(1) + I16(1), {0, 7000, 2000, 2000}, 1, 1},
  };
  for (const Case& c : cases) {
    window.set_rect(design);
    grid.set_width(0, 500);
    grid.set_width(1, 600);
    temp.Write("X.POS", c.file);
    Read();
    EXPECT_EQ(window.rect(), c.rect);
    EXPECT_EQ(grid.width(0), c.first);
    EXPECT_EQ(grid.width(1), c.second);
  }
  Read(0);
  EXPECT_EQ(window.rect().top, 32767);
}

TEST_F(LayoutFile, LeavesTheRecordsOfWhatDoesNotFit) {
  window.set_rect({40000, -40000, 3000, 4000});
  views::WriteLayout(dir, "X.POS", window, grid);
  EXPECT_EQ(temp.Read("X.POS").substr(4, 4), I16(0) + I16(0));
  temp.Write("X.POS", "oooooooowwwwwwtail");
  views::WriteLayout(dir, "X.POS", window, grid);
  EXPECT_EQ(temp.Read("X.POS"), I16(4000) + I16(3000) + "oooo" + I16(500) + I16(600) + "wwtail");
}

TEST_F(LayoutFile, ColumnFlagsCountOnlyAsTheDigitOne) {
  views::ColFlags flags{};
  flags[12] = '1';  // of an earlier read
  temp.Write("X.CAM", "1x 10");
  EXPECT_TRUE(views::ReadColFlags(dir, "X.CAM", flags));
  EXPECT_EQ(std::string(flags.begin() + 1, flags.end()), "1x 10       ");
  for (const std::string_view nothing : {"", "000000000000"}) {
    temp.Write("X.CAM", nothing);
    EXPECT_FALSE(views::ReadColFlags(dir, "X.CAM", flags));
    EXPECT_EQ(std::string(flags.begin() + 1, flags.end()), "111111111111");
  }
}

}  // namespace

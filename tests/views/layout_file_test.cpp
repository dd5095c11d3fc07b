#include "views/layout_file.h"

#include "fixture.h"
#include "views/column_layout.h"

namespace {

using platform::Rect;
using support::I16;
using enum views::LayoutForm;

class LayoutFile : public ViewTest {
 protected:
  LayoutFile() {
    grid.set_cols(2);
    Reset();
  }
  void Reset() {
    grid.set_width(0, 500);
    grid.set_width(1, 600);
    window.set_rect({1, 2, 3000, 4000});
  }
  std::string Written(views::LayoutForm form = place_first) {
    views::WriteLayout(dir, "X.POS", form, window, grid);
    return temp.Read("X.POS");
  }

  platform::Window window{outside};
  platform::Grid grid;
};

TEST_F(LayoutFile, TakesOnlyWhatMakesSense) {
  struct Case {
    std::string file;
    Rect rect;
    int first, second;
    views::LayoutForm form = place_first;
  };
  const Rect design{1, 2, 3000, 4000};
  const Case cases[]{
      {I16(2000) + I16(2000) + I16(9) + I16(9) + I16(700), design, 500, 600},  // 10 bytes
      {I16(2000) + I16(2500) + I16(-9) + I16(8) + I16(700) + "x", {-9, 8, 2500, 2000}, 700, 600},
      {I16(999) + I16(2000) + I16(9) + I16(9) + I16(0) + I16(15001), design, 0, 600},
      {I16(2000) + I16(-1) + I16(9) + I16(9) + I16(-1) + I16(15000), design, 500, 15000},
      {I16(0) + I16(700) + I16(2000) + I16(2500) + I16(-9) + I16(8),
       {-9, 8, 2500, 2000},
       500,
       700,
       widths_first},
      {I16(7) + I16(-1) + I16(2000) + I16(999) + I16(9) + I16(9), design, 500, 600, widths_first},
      {I16(0) + I16(15001) + I16(2000) + I16(2500) + I16(-9) + "x", design, 500, 600, widths_first},
      {std::string(70000, '\x7F'), {32639, 32639, 32639, 32639}, 500, 600, widths_first},
  };
  for (const Case& c : cases) {
    Reset();
    temp.Write("X.POS", c.file);
    views::ReadLayout(dir, "X.POS", c.form, window, grid);
    EXPECT_EQ(window.rect(), c.rect);
    EXPECT_EQ(grid.width(0), c.first);
    EXPECT_EQ(grid.width(1), c.second);
  }
}

TEST_F(LayoutFile, LeavesTheRecordsOfWhatDoesNotFit) {
  EXPECT_EQ(Written(), I16(4000) + I16(3000) + I16(1) + I16(2) + I16(500) + I16(600));
  window.set_rect({40000, -40000, 3000, 4000});
  temp.Write("X.POS", "");
  EXPECT_EQ(Written().substr(4, 4), I16(0) + I16(0));
  temp.Write("X.POS", "oooooooowwwwwwtail");
  EXPECT_EQ(Written(), I16(4000) + I16(3000) + "oooo" + I16(500) + I16(600) + "wwtail");
  temp.Write("X.POS", "xxwwhhwwlltttail");
  EXPECT_EQ(Written(widths_first), I16(0) + I16(600) + I16(4000) + I16(3000) + "lltttail");
}

TEST_F(LayoutFile, ColumnFlagsCountOnlyAsTheDigitOne) {
  views::ColFlags flags{};
  flags[12] = '1';  // of an earlier read
  const std::pair<const char*, const char*> cases[] = {
      {"1x 10", "1x 10       "}, {"", "111111111111"}, {"000000000000", "111111111111"}};
  for (const auto& [file, expected] : cases) {
    temp.Write("X.CAM", file);
    EXPECT_EQ(views::ReadColFlags(dir, "X.CAM", flags), file[0] == '1');
    EXPECT_EQ(std::string(flags.begin() + 1, flags.end()), expected);
  }
}

}  // namespace

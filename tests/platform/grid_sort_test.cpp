#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "platform/grid.h"
#include "support/grid_text.h"

namespace {

using support::GridText;

class GridSort : public testing::Test {
 protected:
  void Fill(int cols, const std::vector<const char*>& cells) {
    grid.set_cols(cols);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const int col = static_cast<int>(i) % cols;
      grid.set_text(col == 0 ? grid.AddRow() : grid.rows() - 1, col, cells[i]);
    }
    grid.Select(0, 0, grid.rows() - 1, 0);
  }

  platform::Grid grid;
};

TEST_F(GridSort, PutsEmptyCellsFirstThenNumbersByValueThenTextsWithoutCaseThenByBytes) {
  const std::vector<const char*> ordered = {
      "",     "  ",   "-1,234.50", "-2%",  "-0.5", "0.00%", ".5", "+3", "20.", "1,000", "00:00:10",
      "1,00", "12a3", "1e3",       "9,50", "abc",  "ABD",   "B",  "b",  "ña",  "Ñb"};
  std::vector<const char*> cells(ordered.rbegin(), ordered.rend());
  std::swap(*cells.rbegin(), *(cells.rbegin() + 1));  // equal, so these two keep their order
  Fill(1, cells);
  (void)grid.SortAscending();
  std::string expected;
  for (const char* cell : ordered) expected += std::string(cell) + "\n";
  EXPECT_EQ(GridText(grid), expected);
}

TEST_F(GridSort, MovesWholeRowsWithColoursAndTellsWhereTheyWere) {
  Fill(2, {"zz", "head", "c", "1", "a", "2", "b", "3", "a", "4", "0", "last"});
  grid.set_row_colors(1, 0, 12, 4);
  grid.set_back(2, 1, 7);
  (void)grid.TakeChanges();
  ASSERT_TRUE(grid.Select(4, 0, 1, 0));  // neither heading nor last row
  EXPECT_EQ(grid.SortAscending(), (std::vector<int>{0, 2, 4, 3, 1, 5}));
  EXPECT_EQ(GridText(grid), "zz|head\na|2\na|4\nb|3\nc|1\n0|last\n");
  EXPECT_TRUE(grid.fore(4, 1) == 12 && grid.back(1, 1) == 7);
  EXPECT_EQ(grid.back(1, 0), grid.back_color());
  EXPECT_TRUE(grid.TakeChanges().all);

  EXPECT_EQ(grid.SortAscending(), (std::vector<int>{0, 1, 2, 3, 4, 5}));
  EXPECT_FALSE(grid.dirty());  // they stood in order
}

TEST_F(GridSort, GoesByFurtherColumnsWhereTheFirstAreEqual) {
  Fill(3, {"b", "10", "x", "a", "9", "z", "a", "9", "y", "a", "10", "w", "b", "9", "v"});
  ASSERT_TRUE(grid.Select(0, 0, 4, 1));
  (void)grid.SortAscending();
  EXPECT_EQ(GridText(grid), "a|9|z\na|9|y\na|10|w\nb|9|v\nb|10|x\n");
}

}  // namespace

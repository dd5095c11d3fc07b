#include "platform/grid.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "support/grid_text.h"

namespace {

using platform::Grid;
using support::GridText;

class GridTest : public testing::Test {
 protected:
  void Size(int rows, int cols, std::string_view letters = {}) {
    grid.set_rows(rows);
    grid.set_cols(cols);
    for (std::size_t i = 0; i < letters.size(); ++i) {
      grid.set_text(static_cast<int>(i) / cols, static_cast<int>(i) % cols, letters.substr(i, 1));
    }
  }
  /// What changed, as "first-last" rows.
  std::string Changes() {
    const Grid::Changes changes = grid.TakeChanges();
    if (changes.all) return "all";
    std::string text;
    for (const auto& span : changes.rows) {
      text += std::to_string(span.first) + "-" + std::to_string(span.last) + " ";
    }
    return text;
  }

  Grid grid;
};

TEST_F(GridTest, AClipFillsTheSelectionAndLeavesCellsWithoutPiece) {
  const std::pair<const char*, const char*> cases[] = {
      {"1\t2\t9\r3\t4\t9\r9", "a|b|c\nd|1|2\ng|3|4\n"},  // extra pieces
      {"1\r3", "a|b|c\nd|1|f\ng|3|i\n"},                 // missing pieces
      {"\t2", "a|b|c\nd||2\ng|h|i\n"},                   // an empty piece is a piece
      {"1\t\r3\t\r", "a|b|c\nd|1|f\ng|3|i\n"},           // but not after the last separator
      {"\r3", "a|b|c\nd|e|f\ng|3|i\n"},
      {"", "a|b|c\nd|e|f\ng|h|i\n"},
  };
  for (const auto& [clip, expected] : cases) {
    Size(3, 3, "abcdefghi");
    ASSERT_TRUE(grid.Select(2, 2, 1, 1));  // from any corner
    grid.set_clip(clip);
    EXPECT_EQ(GridText(grid), expected) << testing::PrintToString(clip);
  }
}

TEST_F(GridTest, ARowHolds65535BytesAndCellsPastThatStayEmpty) {
  Size(1, 3);
  platform::RowText row;
  row.Add(std::string(65535, 'x'));
  row.Add("y");
  grid.set_row_text(0, row);
  grid.set_text(0, 2, "z");
  EXPECT_EQ(GridText(grid).size(), 65535 + 3U);
  grid.set_text(0, 0, "short");
  grid.set_text(0, 2, "z");
  EXPECT_EQ(GridText(grid), "short||z\n");
}

TEST_F(GridTest, TheCurrentCellStaysInsideAndCarriesTheSelectionsEnd) {
  const auto positions = [this] {
    return std::vector<int>{grid.row(), grid.col(), grid.row_sel(), grid.col_sel(), grid.top_row()};
  };
  Size(5, 3);
  ASSERT_TRUE(grid.Select(1, 0, 4, 2));
  EXPECT_FALSE(grid.Select(1, 0, 5, 2) || grid.set_row(5) || grid.set_col(-1));
  grid.set_top_row(99);
  EXPECT_EQ(positions(), (std::vector<int>{1, 0, 4, 2, 4}));
  ASSERT_TRUE(grid.set_row(3));
  EXPECT_EQ(positions(), (std::vector<int>{3, 0, 3, 2, 4}));
  Size(2, 1);
  EXPECT_EQ(positions(), (std::vector<int>{1, 0, 1, 0, 1}));
  Size(-1, 1);
  EXPECT_EQ(positions(), (std::vector<int>{0, 0, 0, 0, 0}));
  EXPECT_FALSE(grid.set_row(0));
  grid.set_clip("x");
  EXPECT_TRUE(grid.SortAscending().empty());
}

TEST_F(GridTest, OutsideNothingIsReadOrWritten) {
  Size(2, 2, "abcd");
  (void)grid.TakeChanges();
  for (const auto& [r, c] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 2}}) {
    grid.set_text(r, c, "x");
    grid.set_fore(r, c, 5);
    grid.set_back(r, c, 5);
    grid.set_row_colors(r, c, 5, 5);
    EXPECT_TRUE(grid.text(r, c).empty() && grid.fore(r, c) == grid.fore_color());
  }
  grid.set_row_text(2, {});
  grid.set_width(0, 15001);
  grid.set_width(2, 100);
  grid.set_font_size(0);
  grid.MoveColumn(0, 2);
  EXPECT_FALSE(grid.dirty());
  EXPECT_EQ(GridText(grid), "a|b\nc|d\n");
}

TEST_F(GridTest, TellsOnlyRealChangesJoinedIntoSpans) {
  Size(6, 2, "ab");
  EXPECT_EQ(Changes(), "all");
  platform::RowText same;
  same.Add("a");
  same.Add("b");
  grid.set_row_text(0, same);
  grid.set_text(1, 0, "");
  grid.set_row_colors(2, 0, Grid::kUnset, Grid::kUnset);
  grid.set_width(0, grid.width(0));
  EXPECT_FALSE(grid.dirty());

  grid.set_text(4, 1, "x");
  grid.set_back(2, 0, 1);
  for (int twice = 0; twice < 2; ++twice) grid.set_row_text(3, same);
  grid.set_fore(0, 0, 2);
  EXPECT_EQ(Changes(), "0-0 2-4 ");
  EXPECT_EQ(grid.AddRow(), 6);
  grid.set_text(5, 0, "y");
  EXPECT_EQ(Changes(), "5-6 ");
  grid.set_row(3);
  EXPECT_TRUE(grid.dirty());
  EXPECT_EQ(Changes(), "");
  grid.set_width(0, 700);
  EXPECT_EQ(Changes(), "all");
}

TEST_F(GridTest, AMovedColumnTakesItsLookAlongAndAllTextFollows) {
  Size(2, 4, "ABCDabcd");
  grid.set_width(1, 111);
  grid.set_align(1, platform::Align::right);
  grid.MoveColumn(1, 3);
  EXPECT_EQ(grid.AllText(), "A\tC\tD\tB\ra\tc\td\tb\r");
  EXPECT_TRUE(grid.width(3) == 111 && grid.align(3) == platform::Align::right);
}

// The plainest grid there is.
struct Cell {
  std::string text;
  base::Color fore = Grid::kUnset, back = Grid::kUnset;
  bool operator==(const Cell&) const = default;
};
using Row = std::vector<Cell>;

class GridModel : public GridTest {
 protected:
  GridModel() {
    grid.set_fore_color(Grid::kUnset);
    grid.set_back_color(Grid::kUnset);
  }

  int Below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
  [[nodiscard]] static std::size_t At(int i) { return static_cast<std::size_t>(i); }

  [[nodiscard]] Row RowOf(int r) const {
    Row row;
    for (int c = 0; c < grid.cols(); ++c) {
      row.push_back({std::string(grid.text(r, c)), grid.fore(r, c), grid.back(r, c)});
    }
    return row;
  }

  void Resize(int rows, int cols) {
    Size(rows, cols);
    cells.resize(At(rows));
    for (Row& row : cells) row.resize(At(cols));
  }
  void MoveColumnToFront(int c) {
    grid.MoveColumn(c, 0);
    for (Row& row : cells) std::rotate(row.begin(), row.begin() + c, row.begin() + c + 1);
  }
  void Sort(int r, int c) {
    ASSERT_TRUE(grid.Select(r, c, grid.rows() - 1, grid.cols() - 1));
    const auto old = cells;
    const auto former = grid.SortAscending();
    for (std::size_t i = 0; i < old.size(); ++i) cells[i] = old.at(At(former.at(i)));
  }
  void WriteCells(int r, int c) {
    Row& row = cells[At(r)];
    Cell& cell = row[At(c)];
    const base::Color fore = Below(3), back = Below(2) == 0 ? Grid::kUnset : Below(3);
    platform::RowText text;
    switch (Below(5)) {
      case 0:
        return grid.set_text(r, c, cell.text = std::string(At(Below(20)), 'x'));
      case 1:
        for (Cell& each : row) text.Add(each.text = std::to_string(Below(1000)));
        return grid.set_row_text(r, text);
      case 2:
        return grid.set_fore(r, c, cell.fore = fore);
      case 3:
        return grid.set_back(r, c, cell.back = back);
      default:
        c *= Below(2);
        grid.set_row_colors(r, c, fore, back);
        for (auto at = row.begin() + c; at != row.end(); ++at) *at = {at->text, fore, back};
    }
  }
  // The same random write on both.
  void Write() {
    const int r = Below(grid.rows()), c = Below(grid.cols());
    switch (Below(40)) {
      case 0:
        return Resize(2 + Below(10), 1 + Below(6));
      case 1:
        return Resize(grid.AddRow() + 1, grid.cols());
      case 2:
        return MoveColumnToFront(c);
      case 3:
        return Sort(r, c);
      default:
        return WriteCells(r, c);
    }
  }

  std::mt19937 random{20000103};
  std::vector<Row> cells;
};

TEST_F(GridModel, AgreesWithTheGridOverRandomWritesAndIsToldEveryChange) {
  Resize(8, 4);
  std::vector<Row> screen;  // follows TakeChanges only
  for (int step = 0; step < 20000; ++step) {
    Write();
    for (int r = 0; r < grid.rows(); ++r) ASSERT_TRUE(RowOf(r) == cells[At(r)]) << step;
    if (Below(3) != 0) continue;
    const Grid::Changes changes = grid.TakeChanges();
    if (changes.all) screen = cells;
    screen.resize(cells.size());
    for (const auto& [first, last] : changes.rows) {
      std::copy(cells.begin() + first, cells.begin() + last + 1, screen.begin() + first);
    }
    ASSERT_TRUE(screen == cells) << step;
  }
}

}  // namespace

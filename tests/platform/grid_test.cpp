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

// Rows as "a|b|c", one a line.
void Fill(Grid& grid, int rows, int cols, const std::vector<std::string>& cells) {
  grid.set_rows(rows);
  grid.set_cols(cols);
  for (int i = 0; i < static_cast<int>(cells.size()); ++i) {
    grid.set_text(i / cols, i % cols, cells[static_cast<std::size_t>(i)]);
  }
}

std::string SpansText(const Grid::Changes& changes) {
  if (changes.all) return "all";
  std::string text;
  for (const auto& span : changes.rows) {
    text += std::to_string(span.first) + "-" + std::to_string(span.last) + " ";
  }
  return text;
}

TEST(Grid, ClipFillsTheSelectionAndLeavesCellsWithoutPiece) {
  struct Case {
    const char *clip, *expected;
  };
  for (const auto& [clip, expected] : {
           Case{"1\t2\r3\t4", "a|b|c\nd|1|2\ng|3|4\n"},
           Case{"1\t2\t9\r3\t4\t9\r9", "a|b|c\nd|1|2\ng|3|4\n"},  // extra pieces
           Case{"1\r3", "a|b|c\nd|1|f\ng|3|i\n"},                 // missing pieces
           Case{"\t2", "a|b|c\nd||2\ng|h|i\n"},                   // an empty piece is a piece
           Case{"1\t\r3\t\r", "a|b|c\nd|1|f\ng|3|i\n"},  // but not after the last separator
           Case{"\r3", "a|b|c\nd|e|f\ng|3|i\n"},
           Case{"", "a|b|c\nd|e|f\ng|h|i\n"},
       }) {
    Grid grid;
    Fill(grid, 3, 3, {"a", "b", "c", "d", "e", "f", "g", "h", "i"});
    ASSERT_TRUE(grid.Select(2, 2, 1, 1));  // from any corner
    grid.set_clip(clip);
    EXPECT_EQ(GridText(grid), expected) << testing::PrintToString(clip);
  }
}

TEST(Grid, RowTextFillsMissingCellsAndDropsExtraOnes) {
  Grid grid;
  Fill(grid, 1, 3, {"a", "b", "c"});
  platform::RowText row;
  row.Add("x");
  grid.set_row_text(0, row);
  EXPECT_EQ(GridText(grid), "x||\n");
  for (const char* cell : {"", "yy", "z"}) row.Add(cell);
  grid.set_row_text(0, row);
  EXPECT_EQ(GridText(grid), "x||yy\n");
  row.Clear();
  grid.set_row_text(0, row);
  EXPECT_EQ(GridText(grid), "||\n");
}

TEST(Grid, ARowHolds65535BytesAndCellsPastThatStayEmpty) {
  Grid grid;
  Fill(grid, 1, 3, {});
  platform::RowText row;
  row.Add(std::string(65535, 'x'));
  row.Add("y");
  row.Add("");
  grid.set_row_text(0, row);
  EXPECT_EQ(grid.text(0, 0).size(), 65535u);
  EXPECT_EQ(grid.text(0, 1), "");
  grid.set_text(0, 2, "z");
  EXPECT_EQ(grid.text(0, 2), "");
  grid.set_text(0, 0, "short");
  grid.set_text(0, 2, "z");
  EXPECT_EQ(GridText(grid), "short||z\n");
}

TEST(Grid, CurrentCellStaysInsideAndCarriesTheSelectionsEnd) {
  Grid grid;
  Fill(grid, 5, 3, {});
  ASSERT_TRUE(grid.Select(1, 0, 4, 2));
  EXPECT_FALSE(grid.Select(1, 0, 5, 2));
  EXPECT_FALSE(grid.set_row(5));
  EXPECT_FALSE(grid.set_col(-1));
  EXPECT_EQ(grid.row_sel(), 4);
  ASSERT_TRUE(grid.set_row(3));
  EXPECT_EQ(grid.row_sel(), 3);
  EXPECT_EQ(grid.col_sel(), 2);
  grid.set_top_row(99);
  EXPECT_EQ(grid.top_row(), 4);

  grid.set_rows(2);
  grid.set_cols(1);
  EXPECT_EQ(grid.row(), 1);
  EXPECT_EQ(grid.row_sel(), 1);
  EXPECT_EQ(grid.col_sel(), 0);
  EXPECT_EQ(grid.top_row(), 1);
  grid.set_rows(-1);
  EXPECT_EQ(grid.rows(), 0);
  EXPECT_EQ(grid.row(), 0);
  EXPECT_FALSE(grid.set_row(0));
  grid.set_clip("x");
  EXPECT_TRUE(grid.SortAscending().empty());
}

TEST(Grid, OutsideNothingIsReadOrWritten) {
  Grid grid;
  Fill(grid, 2, 2, {"a", "b", "c", "d"});
  (void)grid.TakeChanges();
  for (const auto& [r, c] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 2}}) {
    grid.set_text(r, c, "x");
    grid.set_fore(r, c, 5);
    grid.set_back(r, c, 5);
    grid.set_row_colors(r, c, 5, 5);
    EXPECT_EQ(grid.text(r, c), "");
    EXPECT_EQ(grid.fore(r, c), grid.fore_color());
  }
  grid.set_row_text(2, {});
  grid.set_width(0, 15001);
  grid.set_width(2, 100);
  grid.set_font_size(0);
  grid.MoveColumn(0, 2);
  EXPECT_FALSE(grid.dirty());
  EXPECT_EQ(GridText(grid), "a|b\nc|d\n");
}

TEST(Grid, TellsOnlyRealChangesJoinedIntoSpans) {
  Grid grid;
  Fill(grid, 6, 2, {"a", "b"});
  EXPECT_EQ(SpansText(grid.TakeChanges()), "all");
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
  grid.set_row_text(3, same);
  grid.set_row_text(3, same);
  grid.set_fore(0, 0, 2);
  EXPECT_TRUE(grid.dirty());
  EXPECT_EQ(SpansText(grid.TakeChanges()), "0-0 2-4 ");
  EXPECT_FALSE(grid.dirty());

  EXPECT_EQ(grid.AddRow(), 6);
  grid.set_text(5, 0, "y");
  grid.set_text(6, 0, "z");
  EXPECT_EQ(SpansText(grid.TakeChanges()), "5-6 ");
  grid.set_row(3);
  EXPECT_TRUE(grid.dirty());
  EXPECT_EQ(SpansText(grid.TakeChanges()), "");
  grid.set_rows(5);
  EXPECT_EQ(SpansText(grid.TakeChanges()), "all");
  grid.set_width(0, 700);
  EXPECT_EQ(SpansText(grid.TakeChanges()), "all");
}

TEST(Grid, AMovedColumnTakesItsWidthAlongAndAllTextFollows) {
  Grid grid;
  Fill(grid, 2, 4, {"A", "B", "C", "D", "a", "b", "c", "d"});
  grid.set_width(1, 111);
  grid.set_align(1, platform::Align::right);
  grid.MoveColumn(1, 3);
  EXPECT_EQ(grid.AllText(), "A\tC\tD\tB\ra\tc\td\tb\r");
  EXPECT_EQ(grid.width(3), 111);
  EXPECT_EQ(grid.align(3), platform::Align::right);
  grid.MoveColumn(3, 0);
  EXPECT_EQ(grid.AllText(), "B\tA\tC\tD\rb\ta\tc\td\r");
}

// One cell of the plainest grid there is.
struct Cell {
  std::string text;
  base::Color fore = Grid::kUnset, back = Grid::kUnset;
};
using Cells = std::vector<std::vector<Cell>>;

std::string CellText(std::string_view text, base::Color fore, base::Color back) {
  return std::string(text) + "," + std::to_string(fore) + "," + std::to_string(back) + "|";
}

std::string RowOf(const Grid& grid, int r) {
  std::string text;
  for (int c = 0; c < grid.cols(); ++c) {
    text += CellText(grid.text(r, c), grid.fore(r, c), grid.back(r, c));
  }
  return text;
}

std::string RowOf(const std::vector<Cell>& row, const Grid& grid) {
  std::string text;
  for (const auto& [cell, fore, back] : row) {
    text += CellText(cell, fore == Grid::kUnset ? grid.fore_color() : fore,
                     back == Grid::kUnset ? grid.back_color() : back);
  }
  return text;
}

// The same random write on both.
template <typename Below>
void WriteOnBoth(Grid& grid, Cells& cells, const Below& below) {
  const int r = below(grid.rows()), c = below(grid.cols());
  auto& row = cells[static_cast<std::size_t>(r)];
  auto& cell = row[static_cast<std::size_t>(c)];
  const base::Color fore = below(3), back = below(2) == 0 ? Grid::kUnset : below(3);
  const auto resize = [&](int rows, int cols) {
    grid.set_rows(rows);
    grid.set_cols(cols);
    cells.resize(static_cast<std::size_t>(rows));
    for (auto& each : cells) each.resize(static_cast<std::size_t>(cols));
  };
  switch (below(40)) {
    case 0:
      return resize(2 + below(10), 1 + below(6));
    case 1:
      return resize(grid.AddRow() + 1, grid.cols());
    case 2:
      grid.MoveColumn(c, 0);
      for (auto& each : cells) std::rotate(each.begin(), each.begin() + c, each.begin() + c + 1);
      return;
    case 3: {
      ASSERT_TRUE(grid.Select(r, c, grid.rows() - 1, grid.cols() - 1));
      const Cells old = cells;
      const auto former = grid.SortAscending();
      for (std::size_t i = 0; i < old.size(); ++i) cells[i] = old.at(std::size_t(former.at(i)));
      return;
    }
    default:
      break;
  }
  switch (below(5)) {
    case 0:
      return grid.set_text(r, c, cell.text = std::string(std::size_t(below(20)), 'x'));
    case 1: {
      platform::RowText text;
      for (auto& each : row) text.Add(each.text = std::to_string(below(1000)));
      return grid.set_row_text(r, text);
    }
    case 2:
      return grid.set_fore(r, c, cell.fore = fore);
    case 3:
      return grid.set_back(r, c, cell.back = back);
    default: {
      const int from = below(2) * c;
      grid.set_row_colors(r, from, fore, back);
      for (auto at = row.begin() + from; at != row.end(); ++at) *at = {at->text, fore, back};
    }
  }
}

TEST(Grid, AgreesWithAPlainModelOverRandomWritesAndTellsEveryChange) {
  std::mt19937 random(20000103);
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  Grid grid;
  Fill(grid, 8, 4, {});
  Cells cells(8, std::vector<Cell>(4));
  std::vector<std::string> screen;  // follows TakeChanges only
  for (int step = 0; step < 20000; ++step) {
    WriteOnBoth(grid, cells, below);
    const bool taken = below(3) == 0;
    const auto changes = taken ? grid.TakeChanges() : Grid::Changes{};
    if (taken) screen.resize(cells.size());
    for (int r = 0; r < grid.rows(); ++r) {
      const std::string row = RowOf(grid, r);
      ASSERT_EQ(row, RowOf(cells[std::size_t(r)], grid)) << step;
      if (!taken) continue;
      bool told = changes.all;
      for (const auto& span : changes.rows) told |= span.first <= r && r <= span.last;
      if (told) screen[std::size_t(r)] = row;
      ASSERT_EQ(screen[std::size_t(r)], row) << step;
    }
  }
}

}  // namespace

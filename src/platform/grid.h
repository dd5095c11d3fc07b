#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/palette.h"
#include "platform/control.h"

namespace platform {

enum class Align { left, right, center };

/// The cell texts of one row while it is being built; reused, so that building allocates nothing
/// once it has grown. A row holds at most 65535 bytes; cells past that stay empty.
class RowText {
 public:
  void Clear() {
    data_.clear();
    ends_.clear();
  }
  /// Append to this text, then close the cell with `EndCell`.
  [[nodiscard]] std::string& buffer() { return data_; }
  void EndCell();
  void Add(std::string_view cell) {
    data_.append(cell);
    EndCell();
  }

  [[nodiscard]] int cells() const { return static_cast<int>(ends_.size()); }
  /// "" past the last cell.
  [[nodiscard]] std::string_view cell(int c) const;

 private:
  friend class Grid;

  std::string data_;
  std::vector<std::uint16_t> ends_;
};

/// The table behind a grid control: it is the data, the screen holds no copy. Row 0 is the heading.
/// Rows and columns count from 0. Reading outside gives "" and the default colours, writing outside
/// does nothing. Cell texts are UTF-8. A row costs under 100 bytes beside its texts as long as its
/// cells share their colours.
class Grid : public Control {
 public:
  /// A cell colour that is not set: the grid's own fore or back colour holds.
  static constexpr base::Color kUnset = std::numeric_limits<base::Color>::min();

  Grid();
  ~Grid() override;

  // Size. New cells are empty with unset colours; shrinking cuts and clamps the current cell.
  [[nodiscard]] int rows() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int cols() const { return static_cast<int>(columns_.size()); }
  void set_rows(int rows);
  void set_cols(int cols);
  /// Adds an empty row at the end and returns its number.
  int AddRow();

  // Current cell and selection. Setting the row (column) also puts the selection's end on it; a
  // number out of range changes nothing and gives false.
  [[nodiscard]] int row() const { return row_; }
  [[nodiscard]] int col() const { return col_; }
  [[nodiscard]] int row_sel() const { return row_sel_; }
  [[nodiscard]] int col_sel() const { return col_sel_; }
  bool set_row(int row);
  bool set_col(int col);
  bool set_row_sel(int row);
  bool set_col_sel(int col);
  /// Current cell (row1, col1), selection to (row2, col2). All four in range, or nothing happens.
  bool Select(int row1, int col1, int row2, int col2);

  // Cells.
  [[nodiscard]] std::string_view text(int row, int col) const;
  void set_text(int row, int col, std::string_view text);
  /// Grow whenever row 0, or column 0, comes to read otherwise than before.
  [[nodiscard]] unsigned heading_changes() const { return heading_changes_; }
  [[nodiscard]] unsigned name_changes() const { return name_changes_; }
  /// The whole row in one operation; missing cells become empty, extra ones are dropped.
  void set_row_text(int row, const RowText& cells);
  /// Fills the selection from (row, col) to (row_sel, col_sel): `text` is split at CR into rows
  /// and at TAB into cells. Extra pieces are dropped, cells without a piece keep their text. A
  /// separator at the end adds no piece.
  void set_clip(std::string_view text);
  /// Resolved: an unset cell colour gives the grid's.
  [[nodiscard]] base::Color fore(int row, int col) const;
  [[nodiscard]] base::Color back(int row, int col) const;
  void set_fore(int row, int col, base::Color fore);
  void set_back(int row, int col, base::Color back);
  void set_colors(int row, int col, base::Color fore, base::Color back);
  /// Both colours of the cells `first_col` to the last of a row.
  void set_row_colors(int row, int first_col, base::Color fore, base::Color back);

  // Columns. Widths in twips, 0 to 15000; others are refused.
  [[nodiscard]] int width(int col) const;
  void set_width(int col, int twips);
  [[nodiscard]] Align align(int col) const;
  void set_align(int col, Align align);
  /// Puts a column in another place with its heading, cells, width and alignment.
  void MoveColumn(int from, int to);

  // Look of the whole grid.
  [[nodiscard]] base::Color fore_color() const { return fore_color_; }
  void set_fore_color(base::Color color);
  [[nodiscard]] base::Color back_color() const { return back_color_; }
  void set_back_color(base::Color color);
  /// 0 none to 11; other numbers are clamped.
  [[nodiscard]] int grid_lines() const { return grid_lines_; }
  void set_grid_lines(int style);
  /// "" is the program's own font.
  [[nodiscard]] const std::string& font_name() const { return font_name_; }
  void set_font_name(std::string_view name);
  /// Points; a value not in (0, 72] is refused.
  [[nodiscard]] float font_size() const { return font_size_; }
  void set_font_size(float points);

  /// First row below the heading that is shown, clamped to 0..rows-1 and kept as set.
  [[nodiscard]] int top_row() const { return top_row_; }
  void set_top_row(int row);

  /// Sorts the rows row..row_sel by the columns col..col_sel, left to right, ascending and stable.
  /// Empty cells come first, then numbers ("," groups, an optional "%" and sign) by value, then
  /// texts, case-blind, then by bytes. Rows move with their colours. Returns, for every row of the
  /// grid, the number that it had before.
  std::vector<int> SortAscending();
  /// The same for rows 1 to `row` by `col`, where those before it are in that order already: puts
  /// it in its place and returns that.
  int SortRow(int row, int col);

  /// The whole grid as text: cells joined by TAB, every row ended by CR.
  [[nodiscard]] std::string AllText() const;

  // The mouse, kept by the binder before it calls a hook. Row 0 is the heading, -1 none.
  int mouse_row = -1, mouse_col = -1;
  std::function<void()> on_click, on_double_click, on_mouse_move;
  /// The user drags column `from` to `to`; the answer is where it goes.
  std::function<int(int from, int to)> on_before_move_column;
  /// Once, when the user lets go of a column boundary (or widened by key).
  std::function<void()> on_after_user_resize;

  // For the binder: what has changed since the last call. `all` covers everything (sizes, columns,
  // look, order of rows); otherwise the rows of the spans, joined and in ascending order. Rows
  // added at the end are in the spans: compare rows() with what it was. Current cell, selection and
  // top row are not told here: the model is dirty, and that is all. Cleans the model.
  struct Span {
    int first, last;
  };
  struct Changes {
    bool all = false;
    std::vector<Span> rows;
  };
  [[nodiscard]] Changes TakeChanges();

 private:
  struct CellColors {
    base::Color fore = kUnset, back = kUnset;
    friend bool operator==(const CellColors&, const CellColors&) = default;
  };
  struct Row {
    /// "" where all cells are empty; else the end of each cell in the bytes (16 bits each), then
    /// the bytes of all cells.
    std::string cells;
    /// Colours of all cells, as long as they share them.
    CellColors colors;
    /// One a cell where they don't.
    std::unique_ptr<CellColors[]> own_colors;
  };
  struct Column {
    int width = 960;
    Align align = Align::left;
  };

  [[nodiscard]] bool HasRow(int row) const { return row >= 0 && row < rows(); }
  [[nodiscard]] bool HasCol(int col) const { return col >= 0 && col < cols(); }
  [[nodiscard]] bool Inside(int row, int col) const { return HasRow(row) && HasCol(col); }
  void ClampPositions();
  void TakeColumns(const std::vector<int>& source);

  [[nodiscard]] std::string_view Cell(const Row& row, int col) const;
  static bool StoreCells(std::string& cells, std::size_t cols, const RowText& text);

  [[nodiscard]] CellColors ColorsAt(int row, int col) const;
  void SetColors(int row, int first_col, int last_col, CellColors colors);
  void TakeColors(Row& row, const std::vector<int>& source);
  [[nodiscard]] std::unique_ptr<CellColors[]> NewColors();

  void TouchRow(int row);
  void TouchAll();
  template <typename T, typename V>
  void SetLook(T& field, V&& value) {
    if (Set(field, std::forward<V>(value))) TouchAll();
  }

  std::vector<Row> rows_;
  std::vector<Column> columns_;
  int row_ = 0, col_ = 0, row_sel_ = 0, col_sel_ = 0, top_row_ = 0;
  base::Color fore_color_ = base::palette::kBlack, back_color_ = base::palette::kBrightWhite;
  int grid_lines_ = 1;
  std::string font_name_;
  float font_size_ = 7.0F;
  std::vector<std::unique_ptr<CellColors[]>> spare_colors_;  // so that flashing allocates nothing
  unsigned heading_changes_ = 0, name_changes_ = 0;
  bool all_dirty_ = true;
  int added_from_ = 0;  // rows from here on are new since the last TakeChanges
  std::vector<int> dirty_rows_;
  std::vector<std::uint8_t> row_is_dirty_;
};

}  // namespace platform

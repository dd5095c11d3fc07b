#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calc/blocks.h"
#include "platform/spreadsheet.h"

// The lines that the terminal and its helper exchange: fields between tabs, UTF-8, ended by a line
// feed; docs/calc.md tells what they mean.
namespace calc {

using Value = platform::Spreadsheet::Value;

/// Cuts bytes that come in pieces of any size into lines. One that is longer than kMaxLine is
/// dropped whole.
class LineReader {
 public:
  static constexpr std::size_t kMaxLine = 64 * 1024;

  /// Calls `take(line)`, without the line feed, for each line that has become complete.
  template <typename Take>
  void Feed(std::string_view bytes, Take&& take) {
    while (const auto line = Next(bytes)) take(*line);
  }
  /// Forgets a line that has only begun.
  void Clear();

 private:
  // Takes bytes away up to the end of a line; nothing when there is none left.
  std::optional<std::string_view> Next(std::string_view& bytes);

  std::string begun_, line_;
  bool too_long_ = false;
};

/// What a line says about one cell. A formula is a text that begins with "=".
struct CellField {
  Value value;
  bool formula = false;
};

/// Reads the fields of a line, which outlives it, one by one. One that is missing or isn't what is
/// asked for fails all that follow, and gives 0 or empty.
class Fields {
 public:
  explicit Fields(std::string_view line) : rest_(line) {}

  /// As it stands.
  std::string_view Word();
  std::string Text();
  int Integer(int low, int high);
  CellField Cell();
  /// Of the sheet's size at most.
  Block Range();

  [[nodiscard]] bool more() const { return good_ && more_; }
  /// Everything was read, and nothing failed.
  [[nodiscard]] bool Done() const { return good_ && !more_; }

 private:
  std::string_view rest_;
  bool good_ = true, more_ = true;
};

/// Cells side by side.
struct RowLine {
  int row = 0, col = 0;  // of the first
  std::vector<CellField> cells;
};

/// The rest of a "row" line; false when any of it is broken or lies outside the sheet.
[[nodiscard]] bool ReadRow(Fields& fields, RowLine& row);

// Each of these appends to `out`.
void AppendEscaped(std::string& out, std::string_view text);
/// A tab, and the number.
void AppendInteger(std::string& out, std::int64_t number);
/// A tab, and the field of one cell.
void AppendCell(std::string& out, const Value& value, bool formula = false);
/// A whole line of a word and numbers.
void AppendLine(std::string& out, std::string_view word, std::initializer_list<int> numbers);

/// A "row" line for each stretch of neighbouring columns. `append_cell(col)` appends one field.
template <typename AppendField>
void AppendRows(std::string& out, int row, Columns columns, AppendField&& append_cell) {
  ForEachRun(columns, [&](int first, int last) {
    out += "row";
    AppendInteger(out, row);
    AppendInteger(out, first);
    for (int col = first; col <= last; ++col) append_cell(col);
    out += '\n';
  });
}

/// The beginning of a text as a cell keeps it: at most 255 characters.
[[nodiscard]] std::string_view CutText(std::string_view text);
/// Cuts a text; makes an empty one, NaN and infinities an empty cell.
void MakeSendable(Value& value);

}  // namespace calc

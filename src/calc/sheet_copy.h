#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calc/lines.h"

namespace calc {

/// What the terminal knows of a sheet and wants on it. A written cell waits until its batch is put
/// together, the newest value only; a colour too, where it differs from the one sent last and no
/// cell of its row has been changed by anybody else since. Without
/// a sheet all cells are empty and writing has no effect, nor has it outside the sheet. Holds its
/// memory (a quarter of a MiB) only while there is a sheet.
class SheetCopy {
 public:
  [[nodiscard]] const Value& value(int row, int col) const;
  [[nodiscard]] std::uint32_t codes_version() const { return codes_version_; }

  void SetNumber(int row, int col, double number);
  void SetText(int row, int col, std::string_view text);
  void SetFormula(int row, int col, std::string_view formula);
  void SetFore(int row, int first, int last, base::Color color);
  void SetBack(int row, int col, base::Color color);

  /// A sheet of which nothing is known yet.
  void Open();
  void Forget();
  /// Cells as the helper has found them. Those that were written since it last took in a batch
  /// stay.
  void Take(const RowLine& found);

  /// Something may wait to be sent.
  [[nodiscard]] bool waiting() const { return waiting_; }
  /// The lines of all that waits, which counts as sent from here on.
  void AppendBatch(std::string& out);
  /// The helper has taken in what was sent.
  void TakenIn();

 private:
  static constexpr std::size_t kWidth = platform::Spreadsheet::kCols + 1;

  struct Paint {
    std::array<std::optional<base::Color>, kWidth> wanted, sent;
  };
  struct Row {
    std::array<Value, kWidth> values;
    Paint fore, back;
    Columns written = 0, sent = 0, formulas = 0;
    bool painted = false;
  };

  Row* Find(int row, int first, int last);
  Value* Write(int row, int col);
  static void ForgetSent(Paint& paint);
  void Colour(Paint Row::*paint, int row, int first, int last, base::Color color);
  void AppendColors(std::string& out, std::string_view word, Paint Row::*paint);

  std::vector<Row> rows_;  // from 1; none without a sheet
  Value empty_;
  std::uint32_t codes_version_ = 0;
  bool waiting_ = false;
};

}  // namespace calc

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/spreadsheet.h"
#include "store/code_scan.h"

namespace spreadsheet {

/// The text of a cell that holds a code: a number as plain number text.
[[nodiscard]] std::string CodeText(const platform::Spreadsheet::Value& value);

/// Which rows of the sheet hold which code, packed, as one pass over the rows finds them. A row
/// whose code wasn't there when the sheet was set up has the one that its cell holds, in capitals.
/// The sixth empty row in a row ends the list.
class CodeRows {
 public:
  static constexpr int kFirst = 2, kLast = 200;

  /// `codes` by row, kLast + 1 of them.
  void Read(std::span<const std::string> codes, const platform::Spreadsheet& sheet);
  /// The first row at or after `row`, 0 to kLast + 1, that holds the code; 0 when there is none.
  [[nodiscard]] int Find(store::CodeKey code, int row = 0) const;

 private:
  static constexpr std::size_t kBlock = store::kCodeBlock;
  static constexpr std::size_t kRoom = (kLast / kBlock + 1) * kBlock;

  std::array<store::CodeKey, kRoom> keys_{};
  std::size_t used_ = 0;  // whole blocks
};

}  // namespace spreadsheet

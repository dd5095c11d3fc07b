#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/palette.h"
#include "calc/blocks.h"
#include "platform/spreadsheet.h"

namespace calc {

/// The running office, as the helper needs it. Calls may take as long as the office likes. None
/// throws: a failing one says so, and the connection counts as lost when `connected` says so.
class Office {
 public:
  using Value = platform::Spreadsheet::Value;

  virtual ~Office() = default;
  /// Connects to an office that is running already, never starting one.
  virtual bool Connect() = 0;
  [[nodiscard]] virtual bool connected() = 0;
  virtual void Disconnect() = 0;
  /// Chooses the sheet of that name: in the document in front, else in any open one. False when
  /// there is none. All calls below are about the chosen one and fail without it, or when it is
  /// gone or has another name now.
  virtual bool Choose(std::string_view sheet) = 0;
  /// Row by row.
  virtual bool Read(const Block& block, std::vector<Value>& values) = 0;
  virtual bool Write(const Block& block, std::span<const Value> values) = 0;
  virtual bool WriteFormula(int row, int col, std::string_view formula) = 0;
  /// The same colour on the text of all these blocks.
  virtual bool SetFore(std::span<const Block> blocks, base::Color color) = 0;
  virtual bool SetBack(std::span<const Block> blocks, base::Color color) = 0;
  /// What is written from `Begin` to `End` is one step for whoever undoes it.
  virtual void Begin() = 0;
  virtual void End() = 0;
};

}  // namespace calc

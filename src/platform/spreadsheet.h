#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>

#include "base/palette.h"

namespace platform {

/// One sheet of a spreadsheet program that the user runs, rows and columns from 1. No call waits
/// for that program: cells are read as they were last heard of or written, and what is written
/// reaches the sheet soon, the newest only. While there is no such program or sheet, cells are
/// empty and writing has no effect; so it is outside kRows and kCols.
class Spreadsheet {
 public:
  static constexpr int kRows = 200, kCols = 15;
  using Value = std::variant<std::monostate, double, std::string>;  // empty, number, UTF-8 text

  virtual ~Spreadsheet() = default;
  /// Looks for a running program, and in it for the sheet of that name; starts none. `done` runs
  /// once, from the event loop, with whether there is a program; its cells are known by then.
  /// Another `Attach` or a `Detach` takes the place of one that is under way, whose `done` is then
  /// never run.
  virtual void Attach(std::string_view sheet, std::function<void(bool attached)> done) = 0;
  /// Nothing is read any more; what was written before still goes out.
  virtual void Detach() = 0;
  /// Whether the program has its window open; false before the first `Attach` is done.
  [[nodiscard]] virtual bool HasWindow() const = 0;
  /// Sends that window the message of this number, both parameters 0, and doesn't wait.
  virtual void SendToWindow(std::uint32_t message) = 0;

  /// Another number after every change of a cell of column 1 that isn't made through this object.
  [[nodiscard]] virtual std::uint32_t codes_version() const = 0;
  /// Valid until the next change.
  [[nodiscard]] virtual const Value& value(int row, int col) const = 0;
  virtual void SetNumber(int row, int col, double number) = 0;
  /// UTF-8, plain: a text that begins with "=" is a text all the same.
  virtual void SetText(int row, int col, std::string_view text) = 0;
  /// In English form: "=g2-c2". Reads as empty until the program has reckoned it.
  virtual void SetFormula(int row, int col, std::string_view formula) = 0;
  /// Colour of the text in columns `first` to `last`.
  virtual void SetFore(int row, int first, int last, base::Color color) = 0;
  /// Colour of the ground of one cell.
  virtual void SetBack(int row, int col, base::Color color) = 0;
};

}  // namespace platform

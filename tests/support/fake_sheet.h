#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "base/masks.h"
#include "platform/spreadsheet.h"

namespace support {

/// A sheet in memory, in a program that is there or not. `Answer` is the moment in which the
/// program answers an `Attach`; what it has taken away since then is gone at once.
class FakeSheet : public platform::Spreadsheet {
 public:
  bool running = false, window = true;  // there is a program, and it has its window
  std::string name = "Cotirama";        // of its one sheet
  std::vector<std::uint32_t> sent;      // messages to the window
  int attaches = 0, writes = 0;         // begun, and cells written with effect

  /// What the user does to a cell.
  void Type(int row, int col, Value typed) {
    cells_[Index(row, col)].value = std::move(typed);
    if (col == 1) ++typed_codes_;
  }
  void Answer() {
    answered_ = true;
    if (done_) std::exchange(done_, {})(running);
  }

  /// A row's cells as text, with "|" between them; formulas as they were written.
  [[nodiscard]] std::string Row(int row) const {
    std::string text;
    for (int col = 1; col <= kCols; ++col) {
      const Cell& cell = cells_[Index(row, col)];
      if (col > 1) text += '|';
      text += cell.formula;
      if (const auto* number = std::get_if<double>(&cell.value)) text += base::NumberText(*number);
      if (const auto* utf8 = std::get_if<std::string>(&cell.value)) text += *utf8;
    }
    return text;
  }
  /// Palette numbers of a row's cells, one hexadecimal digit each; "." was never coloured.
  [[nodiscard]] std::string Fore(int row) const { return Colors(row, &Cell::fore); }
  [[nodiscard]] std::string Back(int row) const { return Colors(row, &Cell::back); }

  void Attach(std::string_view sheet, std::function<void(bool attached)> done) override {
    ++attaches;
    wanted_ = sheet;
    answered_ = false;
    done_ = std::move(done);
  }
  void Detach() override {
    answered_ = false;
    done_ = {};
  }
  [[nodiscard]] bool HasWindow() const override { return answered_ && running && window; }
  void SendToWindow(std::uint32_t message) override { sent.push_back(message); }
  [[nodiscard]] std::uint32_t codes_version() const override {
    return 2 * typed_codes_ + (there() ? 1U : 0U);
  }
  [[nodiscard]] const Value& value(int row, int col) const override {
    return Inside(row, col) ? cells_[Index(row, col)].value : empty_;
  }
  void SetNumber(int row, int col, double number) override { Put(row, col, Value(number)); }
  void SetText(int row, int col, std::string_view text) override {
    Put(row, col, Value(std::string(text)));
  }
  void SetFormula(int row, int col, std::string_view formula) override {
    if (!Put(row, col, {})) return;
    cells_[Index(row, col)].formula = formula;
  }
  void SetFore(int row, int first, int last, base::Color color) override {
    for (int col = first; col <= last; ++col) Paint(row, col, &Cell::fore, color);
  }
  void SetBack(int row, int col, base::Color color) override {
    Paint(row, col, &Cell::back, color);
  }

 private:
  static constexpr base::Color kNone = -1;
  struct Cell {
    Value value;
    std::string formula;
    base::Color fore = kNone, back = kNone;
  };

  static std::size_t Index(int row, int col) {
    return static_cast<std::size_t>((row - 1) * kCols + col - 1);
  }
  [[nodiscard]] bool there() const { return answered_ && running && name == wanted_; }
  [[nodiscard]] bool Inside(int row, int col) const {
    return there() && row >= 1 && row <= kRows && col >= 1 && col <= kCols;
  }
  bool Put(int row, int col, Value value) {
    if (!Inside(row, col)) return false;
    Cell& cell = cells_[Index(row, col)];
    cell.formula.clear();
    cell.value = std::move(value);
    ++writes;
    return true;
  }
  void Paint(int row, int col, base::Color Cell::*what, base::Color color) {
    if (Inside(row, col)) cells_[Index(row, col)].*what = color;
  }
  [[nodiscard]] std::string Colors(int row, base::Color Cell::*what) const {
    std::string digits;
    for (int col = 1; col <= kCols; ++col) {
      const base::Color color = cells_[Index(row, col)].*what;
      digits += color == kNone ? '.' : "0123456789abcdef"[color & 15];
    }
    return digits;
  }

  std::vector<Cell> cells_{std::size_t{kRows} * kCols};
  std::string wanted_;
  std::function<void(bool attached)> done_;
  bool answered_ = false;
  std::uint32_t typed_codes_ = 0;
  Value empty_;
};

}  // namespace support

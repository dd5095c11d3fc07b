#pragma once

#include <cstdlib>
#include <functional>
#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "calc/office.h"

namespace support {

/// One sheet of an office in memory, which the test renames, closes, brings back and overwrites.
/// `log` holds the writing calls as "Write 2,3 1x2".
class FakeOffice : public calc::Office {
 public:
  using Cells = std::map<std::pair<int, int>, Value>;

  bool running = true;
  std::string name = "Cotirama";  // "" while no document is open
  Cells cells;
  std::map<std::pair<int, int>, std::string> formulas;
  std::map<std::pair<int, int>, base::Color> fore, back;
  std::set<std::pair<int, int>> locked;  // cells whose values can't be written
  std::vector<std::string> log;
  std::function<bool()> fails = [] { return false; };  // asked before each call on the sheet

  /// Another document with a sheet of that name takes the place of the one that is open.
  void Open(std::string_view sheet, Cells content) {
    name = sheet;
    cells = std::move(content);
    fore.clear();
    back.clear();
    chosen_.clear();
  }
  void Quit() {
    running = connected_ = false;
    Open("", {});
  }

  bool Connect() override { return connected_ = running; }
  bool connected() override { return connected_; }
  void Disconnect() override { connected_ = false; }
  bool Choose(std::string_view sheet) override {
    chosen_ = connected_ && sheet == name && !fails() ? name : "";
    return !chosen_.empty();
  }
  bool Read(const calc::Block& block, std::vector<Value>& values) override {
    values.clear();
    return Each({&block, 1}, [&](int row, int col) {
      const auto cell = cells.find({row, col});
      values.push_back(cell == cells.end() ? Value() : cell->second);
    });
  }
  bool Write(const calc::Block& block, std::span<const Value> values) override {
    log.push_back("Write" + Text(block));
    if (static_cast<int>(values.size()) != block.rows * block.cols) std::abort();
    for (const auto& [row, col] : locked) {
      const bool inside = row >= block.row && row < block.row + block.rows && col >= block.col &&
                          col < block.col + block.cols;
      if (inside) return false;
    }
    return Each({&block, 1}, [&, i = std::size_t{0}](int row, int col) mutable {
      cells[{row, col}] = values[i++];
    });
  }
  bool WriteFormula(int row, int col, std::string_view formula) override {
    const calc::Block block{row, col, 1, 1};
    log.push_back("Formula" + Text(block));
    return Each({&block, 1}, [&](int, int) { formulas[{row, col}] = formula; });
  }
  bool SetFore(std::span<const calc::Block> blocks, base::Color color) override {
    return Paint("Fore", fore, blocks, color);
  }
  bool SetBack(std::span<const calc::Block> blocks, base::Color color) override {
    return Paint("Back", back, blocks, color);
  }
  void Begin() override { log.emplace_back("Begin"); }
  void End() override { log.emplace_back("End"); }

 private:
  static std::string Text(const calc::Block& block) {
    return " " + std::to_string(block.row) + "," + std::to_string(block.col) + " " +
           std::to_string(block.rows) + "x" + std::to_string(block.cols);
  }
  bool Paint(const char* what, std::map<std::pair<int, int>, base::Color>& colors,
             std::span<const calc::Block> blocks, base::Color color) {
    log.push_back(what + (" " + std::to_string(color)));
    for (const auto& block : blocks) log.back() += Text(block);
    return Each(blocks, [&](int row, int col) { colors[{row, col}] = color; });
  }
  template <typename Do>
  bool Each(std::span<const calc::Block> blocks, Do&& cell) {
    if (!connected_ || chosen_.empty() || chosen_ != name || fails()) return false;
    for (const auto& block : blocks) {
      const bool inside = block.row >= 1 && block.col >= 1 && block.rows >= 1 && block.cols >= 1 &&
                          block.row + block.rows <= 201 && block.col + block.cols <= 16;
      if (!inside) std::abort();
      for (int row = block.row; row < block.row + block.rows; ++row) {
        for (int col = block.col; col < block.col + block.cols; ++col) cell(row, col);
      }
    }
    return true;
  }

  bool connected_ = false;
  std::string chosen_;
};

}  // namespace support

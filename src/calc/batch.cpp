#include "calc/batch.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

namespace calc {
namespace {

// More than any sheet of two states a cell needs; a terminal that never ends its batch isn't kept.
constexpr std::size_t kMaxColors = 256, kMaxBlocks = 3000;
constexpr int kMaxFailed = 64;

void AddHalves(const Block& block, std::vector<Block>& blocks) {
  Block first = block, second = block;
  if (block.rows > 1) {
    first.rows = block.rows / 2;
    second.row += first.rows;
    second.rows -= first.rows;
  } else if (block.cols > 1) {
    first.cols = block.cols / 2;
    second.col += first.cols;
    second.cols -= first.cols;
  } else {
    return;
  }
  blocks.insert(blocks.end(), {second, first});
}

// One step after the other, until the sheet turns out to be gone.
class Steps {
 public:
  explicit Steps(Office& office) : office_(office) {}

  [[nodiscard]] bool gone() const { return gone_; }
  /// Whether it has been done.
  template <typename Step>
  bool Do(Step&& step) {
    if (gone_) return false;
    if (step()) return true;
    gone_ = !office_.Read({1, 1, 1, 1}, probe_);
    return false;
  }

 private:
  Office& office_;
  std::vector<Value> probe_;
  bool gone_ = false;
};

}  // namespace

void Batch::Begin(int number, int sheet) {
  number_ = number;
  sheet_ = sheet;
  for (Row& row : rows_) row.plain = row.formulas = 0;
  fore_.clear();
  back_.clear();
}

void Batch::Add(const RowLine& row) {
  Row& to = rows_[static_cast<std::size_t>(row.row)];
  for (int col = row.col; const CellField& cell : row.cells) {
    const Columns bit = ColumnBit(col), others = static_cast<Columns>(~bit);
    to.plain = cell.formula ? to.plain & others : to.plain | bit;
    to.formulas = cell.formula ? to.formulas | bit : to.formulas & others;
    to.values[static_cast<std::size_t>(col)] = cell.value;
    ++col;
  }
}

void Batch::AddColor(Fields& fields, std::vector<Paint>& paints) {
  using Limits = std::numeric_limits<base::Color>;
  Paint paint{fields.Integer(Limits::min(), Limits::max()), {}};
  do {
    paint.blocks.push_back(fields.Range());
  } while (fields.more());
  if (!fields.Done() || paints.size() == kMaxColors) return;
  if (paint.blocks.size() <= kMaxBlocks) paints.push_back(std::move(paint));
}

std::vector<Value> Batch::ValuesOf(const Block& block) const {
  std::vector<Value> values;
  for (int row = block.row; row < block.row + block.rows; ++row) {
    for (int col = block.col; col < block.col + block.cols; ++col) values.push_back(At(row, col));
  }
  return values;
}

bool Batch::Write(Office& office) const {
  std::vector<Block> blocks;
  for (int row = 1; row < std::ssize(rows_); ++row) {
    ForEachRun(rows_[static_cast<std::size_t>(row)].plain,
               [&](int first, int last) { AddRun(blocks, row, first, last); });
  }
  std::ranges::reverse(blocks);
  Steps steps(office);
  // Of a block with a cell that may not be written the halves are tried, for as long as there are
  // few such.
  for (int failed = 0; !blocks.empty() && failed < kMaxFailed;) {
    const Block block = blocks.back();
    blocks.pop_back();
    if (steps.Do([&] { return office.Write(block, ValuesOf(block)); })) continue;
    ++failed;
    AddHalves(block, blocks);
  }
  for (int row = 1; row < std::ssize(rows_); ++row) {
    for (int col = 1; col <= platform::Spreadsheet::kCols; ++col) {
      if ((rows_[static_cast<std::size_t>(row)].formulas & ColumnBit(col)) == 0) continue;
      steps.Do([&] { return office.WriteFormula(row, col, std::get<std::string>(At(row, col))); });
    }
  }
  for (const Paint& paint : fore_) {
    steps.Do([&] { return office.SetFore(paint.blocks, paint.color); });
  }
  for (const Paint& paint : back_) {
    steps.Do([&] { return office.SetBack(paint.blocks, paint.color); });
  }
  return !steps.gone();
}

}  // namespace calc

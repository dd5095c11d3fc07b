#include "calc/helper.h"

#include <limits>
#include <optional>
#include <utility>

namespace calc {
namespace {

// What the terminal reads of a sheet: the codes up to the last price.
constexpr Block kWatched{2, 1, platform::Spreadsheet::kRows - 1, 7};
constexpr int kAnyNumber = std::numeric_limits<int>::max();

// Index of a cell in what is read; nothing for a cell that isn't watched.
std::optional<std::size_t> IndexOf(int row, int col) {
  const bool watched = row >= kWatched.row && col < kWatched.col + kWatched.cols;
  if (!watched) return std::nullopt;
  return static_cast<std::size_t>((row - kWatched.row) * kWatched.cols + col - kWatched.col);
}

}  // namespace

Helper::Helper(Office& office, std::function<void(std::string_view bytes)> send)
    : office_(office), send_(std::move(send)) {}

void Helper::Receive(std::string_view bytes) {
  reader_.Feed(bytes, [this](std::string_view line) {
    Take(line);
    Send();
  });
}

void Helper::Take(std::string_view line) {
  Fields fields(line);
  const std::string_view word = fields.Word();
  if (word == "attach") {
    const int number = fields.Integer(1, kAnyNumber);
    std::string sheet = fields.Text();
    if (fields.Done()) Attach(number, std::move(sheet));
  } else if (word == "detach") {
    if (fields.Done()) Detach();
  } else if (word == "write") {
    const int number = fields.Integer(1, kAnyNumber), sheet = fields.Integer(0, kAnyNumber);
    if (fields.Done()) batch_.Begin(number, sheet);
  } else if (batch_.number() == 0) {
    return;
  } else if (word == "row") {
    if (ReadRow(fields, row_)) batch_.Add(row_);
  } else if (word == "fore") {
    batch_.AddFore(fields);
  } else if (word == "back") {
    batch_.AddBack(fields);
  } else if (word == "end") {
    const bool ends = fields.Integer(1, kAnyNumber) == batch_.number();
    if (ends && fields.Done()) Write();
  }
}

void Helper::Attach(int number, std::string sheet) {
  name_ = std::move(sheet);
  attached_ = office_.connected() || office_.Connect();
  AppendLine(out_, "window", {attached_ ? 1 : 0});
  if (!attached_ || !Choose()) GiveUpSheet();
  AppendLine(out_, "attached", {number, attached_ ? 1 : 0});
}

void Helper::Detach() {
  attached_ = false;
  sheet_ = 0;
  office_.Disconnect();
}

// A batch that was meant for another sheet than the one there is now is taken in without effect.
void Helper::Write() {
  if (sheet_ != 0 && batch_.sheet() == sheet_) {
    batch_.ForEachCell([this](int row, int col, const Value& value) {
      if (const auto i = IndexOf(row, col)) known_[*i] = value;
    });
    office_.Begin();
    const bool there = batch_.Write(office_);
    office_.End();
    if (!there) GiveUpSheet();
  }
  AppendLine(out_, "done", {batch_.number()});
  batch_.Begin(0, 0);
}

void Helper::Look() {
  if (!attached_) return;
  if (sheet_ != 0 && ReadSheet()) {
    Report();
  } else {
    if (sheet_ != 0) GiveUpSheet();
    if (office_.connected()) (void)Choose();
  }
  if (!office_.connected()) {
    Detach();
    AppendLine(out_, "window", {0});
  }
  Send();
}

bool Helper::Choose() {
  if (!office_.Choose(name_) || !ReadSheet()) return false;
  sheet_ = ++choices_;
  known_.assign(found_.size(), Value());
  AppendLine(out_, "sheet", {sheet_});
  Report();
  return true;
}

void Helper::GiveUpSheet() {
  sheet_ = 0;
  AppendLine(out_, "sheet", {0});
}

bool Helper::ReadSheet() {
  if (!office_.Read(kWatched, found_)) return false;
  if (found_.size() != static_cast<std::size_t>(kWatched.rows * kWatched.cols)) return false;
  for (Value& value : found_) MakeSendable(value);
  return true;
}

void Helper::Report() {
  for (int row = kWatched.row; row < kWatched.row + kWatched.rows; ++row) {
    Columns changed = 0;
    for (int col = kWatched.col; col < kWatched.col + kWatched.cols; ++col) {
      const auto i = *IndexOf(row, col);
      if (found_[i] != known_[i]) changed |= ColumnBit(col);
    }
    AppendRows(out_, row, changed, [&](int col) { AppendCell(out_, found_[*IndexOf(row, col)]); });
  }
  known_.swap(found_);
}

void Helper::Send() {
  if (out_.empty()) return;
  send_(out_);
  out_.clear();
}

}  // namespace calc

#include "calc/lines.h"

#include <charconv>
#include <cmath>
#include <utility>

#include "base/masks.h"
#include "base/text.h"

namespace calc {
namespace {

constexpr std::size_t kMaxText = 255, kMaxTextBytes = 4 * kMaxText;
constexpr std::string_view kEscaped = "\t\n\r\\", kLetters = "tnr\\";

std::optional<std::string> Unescape(std::string_view field) {
  std::string text;
  text.reserve(field.size());
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] != '\\') {
      text += field[i];
      continue;
    }
    if (++i == field.size()) return std::nullopt;
    const auto which = kLetters.find(field[i]);
    if (which == std::string_view::npos) return std::nullopt;
    text += kEscaped[which];
  }
  return text;
}

// The whole field or nothing.
template <typename Number>
std::optional<Number> ReadNumber(std::string_view field) {
  Number number{};
  const char* const end = field.data() + field.size();
  const auto read = std::from_chars(field.data(), end, number);
  return read.ec == std::errc{} && read.ptr == end ? std::optional(number) : std::nullopt;
}

std::optional<CellField> ReadCell(std::string_view field) {
  CellField cell;
  if (field.empty()) return cell;
  if (field[0] == '\'' || field[0] == '=') {
    cell.formula = field[0] == '=';
    auto text = Unescape(cell.formula ? field : field.substr(1));
    if (!text || (cell.formula && CutText(*text).size() < text->size())) return std::nullopt;
    cell.value = std::move(*text);
    if (!cell.formula) MakeSendable(cell.value);
    return cell;
  }
  const auto number = ReadNumber<double>(field);
  if (!number || !std::isfinite(*number)) return std::nullopt;
  cell.value = *number;
  return cell;
}

}  // namespace

std::optional<std::string_view> LineReader::Next(std::string_view& bytes) {
  for (;;) {
    const auto end = bytes.find('\n');
    const std::string_view part = bytes.substr(0, end);
    if (begun_.size() + part.size() > kMaxLine) too_long_ = true;
    if (end == std::string_view::npos) {
      if (too_long_) begun_.clear();
      if (!too_long_) begun_ += part;
      bytes = {};
      return std::nullopt;
    }
    bytes.remove_prefix(end + 1);
    if (std::exchange(too_long_, false)) {
      begun_.clear();
      continue;
    }
    if (begun_.empty()) return part;
    begun_ += part;
    line_.swap(begun_);
    begun_.clear();
    return line_;
  }
}

void LineReader::Clear() {
  begun_.clear();
  too_long_ = false;
}

std::string_view Fields::Word() {
  if (!more()) {
    good_ = false;
    return {};
  }
  const auto tab = rest_.find('\t');
  const std::string_view word = rest_.substr(0, tab);
  more_ = tab != std::string_view::npos;
  if (more_) rest_.remove_prefix(tab + 1);
  return word;
}

std::string Fields::Text() {
  auto text = Unescape(Word());
  if (!text) good_ = false;
  return good_ ? std::move(*text) : std::string();
}

int Fields::Integer(int low, int high) {
  const auto number = ReadNumber<int>(Word());
  if (!number || *number < low || *number > high) good_ = false;
  return good_ ? *number : 0;
}

CellField Fields::Cell() {
  auto cell = ReadCell(Word());
  if (!cell) good_ = false;
  return good_ ? std::move(*cell) : CellField{};
}

Block Fields::Range() {
  constexpr int kRows = platform::Spreadsheet::kRows, kCols = platform::Spreadsheet::kCols;
  Block block;
  block.row = Integer(1, kRows);
  block.col = Integer(1, kCols);
  block.rows = Integer(1, kRows + 1 - block.row);
  block.cols = Integer(1, kCols + 1 - block.col);
  return block;
}

bool ReadRow(Fields& fields, RowLine& row) {
  constexpr int kRows = platform::Spreadsheet::kRows, kCols = platform::Spreadsheet::kCols;
  row.row = fields.Integer(1, kRows);
  row.col = fields.Integer(1, kCols);
  row.cells.clear();
  do {
    row.cells.push_back(fields.Cell());
  } while (fields.more() && row.col + std::ssize(row.cells) <= kCols);
  return fields.Done();
}

void AppendEscaped(std::string& out, std::string_view text) {
  for (const char c : text) {
    const auto which = kEscaped.find(c);
    if (which == std::string_view::npos) {
      out += c;
    } else {
      out += '\\';
      out += kLetters[which];
    }
  }
}

void AppendInteger(std::string& out, std::int64_t number) {
  out += '\t';
  base::AppendNumberText(out, number);
}

void AppendCell(std::string& out, const Value& value, bool formula) {
  out += '\t';
  if (const auto* number = std::get_if<double>(&value)) {
    out += base::NumberText(*number);
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    if (!formula) out += '\'';
    AppendEscaped(out, *text);
  }
}

void AppendLine(std::string& out, std::string_view word, std::initializer_list<int> numbers) {
  out += word;
  for (const int number : numbers) AppendInteger(out, number);
  out += '\n';
}

std::string_view CutText(std::string_view text) {
  // The second cut is for bytes that aren't UTF-8.
  return base::CutUtf8(text, kMaxText).substr(0, kMaxTextBytes);
}

void MakeSendable(Value& value) {
  if (const auto* number = std::get_if<double>(&value)) {
    if (!std::isfinite(*number)) value = {};
  } else if (auto* text = std::get_if<std::string>(&value)) {
    if (text->empty()) {
      value = {};
    } else {
      text->resize(CutText(*text).size());
    }
  }
}

}  // namespace calc

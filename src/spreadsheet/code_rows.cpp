#include "spreadsheet/code_rows.h"

#include <string_view>
#include <variant>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/text.h"

namespace spreadsheet {
namespace {

constexpr int kEmptyAtEnd = 6;

// Of a text that no instrument has for its code: kNoCode.
store::CodeKey KeyOf(std::string_view utf8) {
  const std::string ansi = base::Utf8ToAnsi(utf8);
  // Characters without a byte have become "?", which must not pass for a code's own.
  return base::AnsiToUtf8(ansi) == utf8 ? store::PackCode(ansi) : store::kNoCode;
}

}  // namespace

std::string CodeText(const platform::Spreadsheet::Value& value) {
  if (const auto* const number = std::get_if<double>(&value)) return base::NumberText(*number);
  const auto* const text = std::get_if<std::string>(&value);
  return text == nullptr ? std::string() : *text;
}

void CodeRows::Read(std::span<const std::string> codes, const platform::Spreadsheet& sheet) {
  keys_.fill(store::kNoCode);
  used_ = 0;
  int empty = 0;
  for (int row = kFirst; row <= kLast && empty < kEmptyAtEnd; ++row) {
    const auto at = static_cast<std::size_t>(row);
    std::string reread;
    std::string_view code = base::Trim(codes[at]);
    if (code.empty()) {
      reread = base::UpperUtf8(CodeText(sheet.value(row, 1)));
      code = base::Trim(reread);
    }
    empty = code.empty() ? empty + 1 : 0;
    if (code.empty()) continue;
    keys_[at] = KeyOf(code);
    used_ = (at / kBlock + 1) * kBlock;
  }
}

int CodeRows::Find(store::CodeKey code, int row) const {
  auto at = static_cast<std::size_t>(row);
  for (; at % kBlock != 0; ++at) {
    if (keys_[at] == code) return static_cast<int>(at);
  }
  if (at >= used_) return 0;
  const int found = store::FindCode(std::span(keys_).subspan(at, used_ - at), code);
  return found < 0 ? 0 : static_cast<int>(at) + found;
}

}  // namespace spreadsheet

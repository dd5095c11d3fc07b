#include "base/val.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace base {
namespace {

// The characters of a text less its blanks, one by one; 0 at the end.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) { SkipBlanks(); }

  [[nodiscard]] char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  void Next() {
    ++at_;
    SkipBlanks();
  }
  [[nodiscard]] bool TakeAnyOf(std::string_view choice) {
    if (at_ >= text_.size() || choice.find(text_[at_]) == std::string_view::npos) return false;
    Next();
    return true;
  }

 private:
  void SkipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\n", at_), text_.size()); }

  std::string_view text_;
  std::size_t at_ = 0;
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Value 0.digits * 10^exponent, `digits` without leading zeros.
struct Decimal {
  std::string digits;
  std::int64_t exponent = 0;
};

void ReadMantissa(Reader& reader, Decimal& number) {
  bool in_fraction = false;
  for (;; reader.Next()) {
    const char c = reader.peek();
    if (c == '.' && !in_fraction) {
      in_fraction = true;
    } else if (IsDigit(c)) {
      const bool significant = c != '0' || !number.digits.empty();
      if (significant) number.digits += c;
      if (!in_fraction && significant) ++number.exponent;
      if (in_fraction && !significant) --number.exponent;
    } else {
      return;
    }
  }
}

std::int64_t ReadExponent(Reader reader) {
  if (!reader.TakeAnyOf("EeDd")) return 0;
  const bool negative = reader.peek() == '-';
  (void)reader.TakeAnyOf("+-");
  constexpr std::int64_t kFarBeyond = std::int64_t{1} << 48;  // more than any text has digits
  std::int64_t exponent = 0;
  for (; IsDigit(reader.peek()); reader.Next()) {
    exponent = std::min(exponent * 10 + (reader.peek() - '0'), kFarBeyond);
  }
  return negative ? -exponent : exponent;
}

}  // namespace

std::optional<double> Val(std::string_view text) {
  Reader reader(text);
  const bool negative = reader.peek() == '-';
  (void)reader.TakeAnyOf("+-");
  Decimal number;
  ReadMantissa(reader, number);
  if (number.digits.empty()) return 0.0;
  number.exponent += ReadExponent(reader);
  if (number.exponent > 309) return std::nullopt;
  if (number.exponent < -330) return 0.0;

  number.digits += 'e';
  number.digits +=
      std::to_string(number.exponent - static_cast<std::int64_t>(number.digits.size() - 1));
  double value = 0;
  const char* const begin = number.digits.data();
  const auto parsed = std::from_chars(begin, begin + number.digits.size(), value);
  if (parsed.ec != std::errc{}) value = 0;
  if (parsed.ec != std::errc{} && number.exponent > 0) return std::nullopt;
  return negative ? -value : value;
}

}  // namespace base

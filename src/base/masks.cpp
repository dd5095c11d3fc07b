#include "base/masks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>
#include <type_traits>

namespace base {
namespace {

// Room for every finite double in plain form: 309 digits, or 2 + 323 + 17 below 1.
using PlainBuffer = std::array<char, 400>;

constexpr std::array<double, 9> kPowersOfTen = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};

// |value| * 10^decimals as the mask rounds it, where the product alone can tell: nothing for large
// values and for those too near a tie.
template <typename Float>
std::optional<std::uint64_t> Scaled(Float value, int decimals) {
  // How far, relatively, the shortest text may lie from the value, and the product from the truth.
  constexpr double kReach = std::is_same_v<Float, float> ? 0x1.001p-24 : 0x1p-51;
  const double magnitude = std::abs(static_cast<double>(value));
  const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (!(scaled < 1e15)) return std::nullopt;
  const auto whole = static_cast<std::int64_t>(scaled);
  const double rest = scaled - static_cast<double>(whole);
  // The text of a whole number is exact, and so is its product here.
  const bool exact = static_cast<double>(static_cast<std::int64_t>(magnitude)) == magnitude;
  if (!exact && std::abs(rest - 0.5) <= scaled * kReach) return std::nullopt;
  return static_cast<std::uint64_t>(whole) + (rest > 0.5 ? 1u : 0u);
}

// The same digits for any finite value, from its shortest text; without leading zeros.
template <typename Float>
std::string RoundedDigits(Float value, std::size_t decimals) {
  PlainBuffer buffer;
  const auto printed = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                     std::chars_format::fixed);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(printed.ptr - buffer.data()));
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view fraction = text.substr(std::min(point + 1, text.size()));

  std::string digits = "0";  // takes a carry
  digits += text.substr(0, point);
  digits += fraction.substr(0, decimals);
  digits.resize(1 + point + decimals, '0');
  if (fraction.size() > decimals && fraction[decimals] >= '5') {
    auto last = digits.rbegin();
    for (; *last == '9'; ++last) *last = '0';
    ++*last;
  }
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

template <typename Float>
std::string PlainText(Float value) {
  if (!std::isfinite(value)) return {};
  if (value == 0) return "0";
  PlainBuffer buffer;
  const bool plain = std::abs(static_cast<double>(value)) < 1e15;
  char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                  plain ? std::chars_format::fixed : std::chars_format::scientific)
                        .ptr;
  std::replace(buffer.data(), end, 'e', 'E');
  return {buffer.data(), end};
}

}  // namespace

template <typename Float>
void Mask::AppendValue(std::string& out, Float value) const {
  if (!std::isfinite(value)) return;
  const auto places = static_cast<std::size_t>(min_int_digits_ + decimals_);
  if (const auto scaled = Scaled(value, decimals_)) {
    std::array<char, 32> buffer;
    constexpr std::size_t kZeros = 8;  // in front, for the "0" places
    std::memset(buffer.data(), '0', kZeros);
    char* const start = buffer.data() + kZeros;
    char* const end = std::to_chars(start, buffer.data() + buffer.size(), *scaled).ptr;
    const std::size_t count = *scaled == 0 ? 0 : static_cast<std::size_t>(end - start);
    const std::size_t width = std::max(count, places);
    AppendDigits(out, value < 0 && *scaled != 0, {end - width, width});
    return;
  }
  std::string digits = RoundedDigits(value, static_cast<std::size_t>(decimals_));
  const bool negative = value < 0 && !digits.empty();
  if (digits.size() < places) digits.insert(0, places - digits.size(), '0');
  AppendDigits(out, negative, digits);
}

// `digits` holds the decimals too and is already as wide as the mask asks.
void Mask::AppendDigits(std::string& out, bool negative, std::string_view digits) const {
  const int whole = static_cast<int>(digits.size()) - decimals_;
  const int separators = whole > 0 ? std::min((whole - 1) / step_, max_separators_) : 0;
  const int size = whole + separators + (negative ? 1 : 0) + (decimals_ > 0 ? decimals_ + 1 : 0);
  const std::size_t old_size = out.size();
  out.resize(old_size + static_cast<std::size_t>(size));

  char* to = out.data() + old_size;
  const char* from = digits.data();
  if (negative) *to++ = '-';
  const char* stop = from + (whole - separators * step_);
  for (;;) {
    while (from != stop) *to++ = *from++;
    if (from == digits.data() + whole) break;
    *to++ = separator_;
    stop += step_;
  }
  if (decimals_ == 0) return;
  *to++ = '.';
  std::copy_n(from, decimals_, to);
}

void Mask::Append(std::string& out, double value) const { AppendValue(out, value); }
void Mask::Append(std::string& out, float value) const { AppendValue(out, value); }

std::string Mask::Format(double value) const {
  std::string text;
  Append(text, value);
  return text;
}

std::string Mask::Format(float value) const {
  std::string text;
  Append(text, value);
  return text;
}

std::string NumberText(double value) { return PlainText(value); }
std::string NumberText(float value) { return PlainText(value); }

std::string NumberText(std::int64_t value) {
  std::string text;
  AppendNumberText(text, value);
  return text;
}

double AsWritten(float value) {
  std::array<char, 32> buffer;
  const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  double written = value;
  std::from_chars(buffer.data(), end, written);
  return written;
}

void AppendNumberText(std::string& out, std::int64_t value) {
  std::array<char, 24> buffer;
  const auto printed = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  out.append(buffer.data(), printed.ptr);
}

}  // namespace base

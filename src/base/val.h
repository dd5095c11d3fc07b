#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

// Text to number, whatever the machine's locale.
namespace base {

/// The lenient number reader of every typed field: blanks, tabs and line feeds are skipped
/// anywhere; then sign, digits, one "." as decimal mark and an optional exponent (E or D). It
/// stops at the first character that can't belong to the number. No digits give 0; a value beyond
/// a double gives nothing.
[[nodiscard]] std::optional<double> Val(std::string_view text);

/// `value` as an integer, halves to even. Nothing for NaN, infinities and what Int can't hold.
template <typename Int>
[[nodiscard]] std::optional<Int> ToInteger(double value) {
  const double rounded = std::nearbyint(value);
  // Both bounds are powers of two (or 0), so the comparison is exact.
  const double low = static_cast<double>(std::numeric_limits<Int>::min());
  const double high = std::ldexp(1.0, std::numeric_limits<Int>::digits);
  if (!(rounded >= low && rounded < high)) return std::nullopt;
  return static_cast<Int>(rounded);
}

/// `value` rounded to a float. Nothing for NaN, infinities and what a float can't hold.
[[nodiscard]] inline std::optional<float> ToFloat(double value) {
  const float narrow = static_cast<float>(value);
  return std::isfinite(narrow) ? std::optional(narrow) : std::nullopt;
}

/// `Val` followed by `ToInteger`.
template <typename Int>
[[nodiscard]] std::optional<Int> ValInteger(std::string_view text) {
  const auto value = Val(text);
  return value ? ToInteger<Int>(*value) : std::nullopt;
}

/// `Val` followed by `ToFloat`.
[[nodiscard]] inline std::optional<float> ValFloat(std::string_view text) {
  const auto value = Val(text);
  return value ? ToFloat(*value) : std::nullopt;
}

/// `value` + 1, or `value` itself at the limit of its type.
template <typename Int>
[[nodiscard]] constexpr Int CheckedIncrement(Int value) {
  return value < std::numeric_limits<Int>::max() ? static_cast<Int>(value + 1) : value;
}

}  // namespace base

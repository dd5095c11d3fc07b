#pragma once

#include <cassert>
#include <climits>
#include <cstdint>
#include <string>
#include <string_view>

// Number to text, whatever the machine's locale: "," groups thousands, "." marks decimals.
namespace base {

/// A numeric mask, compiled once. "0" is a digit place that is always printed, "#" one that is
/// printed only where the number has a digit; a "," between digit places groups the integer part
/// by three; "." starts the decimals, all of them "0"; ":" and "/" are literal marks between pairs
/// of "0" that keep their place counted from the right while extra digits go to the front. Rounds
/// half away from zero on the shortest decimal text of the value (that of the float for floats);
/// whole numbers are exact to the unit. A result without a digit other than 0 has no "-". NaN and
/// infinities give "".
class Mask {
 public:
  /// `pattern` must be a mask of the above grammar (a bug otherwise) of at most eight "0" places.
  explicit constexpr Mask(std::string_view pattern);

  [[nodiscard]] std::string Format(double value) const;
  [[nodiscard]] std::string Format(float value) const;
  /// Appends instead of returning: no allocation where `out` has room.
  void Append(std::string& out, double value) const;
  void Append(std::string& out, float value) const;

 private:
  template <typename Float>
  void AppendValue(std::string& out, Float value) const;
  void AppendDigits(std::string& out, bool negative, std::string_view digits) const;

  int min_int_digits_ = 0;  // "0" places before the "."
  int decimals_ = 0;
  char separator_ = 0;      // ",", ":" or "/"
  int step_ = 3;            // digits from one separator to the next
  int max_separators_ = 0;  // counted from the right; digits before them aren't separated
};

constexpr Mask::Mask(std::string_view pattern) {
  bool in_decimals = false;
  for (const char c : pattern) {
    if (c == '.') {
      assert(!in_decimals);
      in_decimals = true;
    } else if (in_decimals) {
      assert(c == '0');
      ++decimals_;
    } else if (c == '0') {
      ++min_int_digits_;
    } else if (c != '#') {
      assert(c == ',' || c == ':' || c == '/');
      separator_ = c;
      ++max_separators_;
    }
  }
  if (separator_ == ',') max_separators_ = INT_MAX;
  if (separator_ == ':' || separator_ == '/') step_ = 2;
  assert(min_int_digits_ + decimals_ <= 8);
}

// The masks of the program.
namespace masks {
inline constexpr Mask kMoney{"###,###,##0.00"};
inline constexpr Mask kPrice{"###,##0.00"};
inline constexpr Mask kRate{"###,##0.000"};
inline constexpr Mask kOpenPrice{"###,##.00"};
inline constexpr Mask kOpenRate{"###,##.000"};
inline constexpr Mask kPercent{"##0.00"};
inline constexpr Mask kShortPercent{"#0.00"};
inline constexpr Mask kWhole{"###,###,##0"};
inline constexpr Mask kCount{"###,###,###"};
inline constexpr Mask kLongCount{"###,###,###,###"};
inline constexpr Mask kTime{"00:00:00"};
inline constexpr Mask kDate{"00/00/00"};
inline constexpr Mask kSixDigits{"000000"};
}  // namespace masks

/// General number text: the shortest decimal that reads back to the same value, whole numbers to
/// the unit, without trailing ".0" and with a leading zero. Below 1e15 never in exponent form, from
/// there on always ("1E+15", as `Val` reads it). Zero has no "-". NaN and infinities give "".
[[nodiscard]] std::string NumberText(double value);
[[nodiscard]] std::string NumberText(float value);
[[nodiscard]] std::string NumberText(std::int64_t value);
void AppendNumberText(std::string& out, std::int64_t value);

/// The number that the shortest decimal of `value` stands for: 11.05, where widening would give
/// 11.050000190734863. NaN and infinities stay.
[[nodiscard]] double AsWritten(float value);

}  // namespace base

#pragma once

#include <cstdint>
#include <string_view>

#include "base/fixed_text.h"

namespace demo {

using Code = base::FixedText<7>;

/// Market state of one traded thing. Prices are whole numbers of 1/`scale`, cash too.
/// From the first price of a day on low <= last <= high holds, and while every price comes with
/// its volume cash / volume lies between low and high.
struct Instrument {
  Code code;
  base::FixedText<20> name;
  int scale = 100;
  std::int64_t previous = 0;  // close of the day before
  std::int64_t open = 0;      // 0 until the first price of the day
  std::int64_t high = 0, low = 0, last = 0;
  std::int64_t volume = 0, cash = 0;
  int time = 0;               // HHMMSS of the last change
  std::uint32_t changes = 0;  // grows with each price; tells whether a book is out of date

  Instrument(std::string_view code_utf8, std::string_view name_utf8, int units, std::int64_t price)
      : code(Code::FromUtf8(code_utf8)),
        name(base::FixedText<20>::FromUtf8(name_utf8)),
        scale(units),
        previous(price),
        high(price),
        low(price),
        last(price) {}

  [[nodiscard]] bool is_open() const { return open != 0; }
  // As records tell them.
  [[nodiscard]] float Price(std::int64_t units) const {
    return static_cast<float>(static_cast<double>(units) / scale);
  }
  [[nodiscard]] double Cash() const { return static_cast<double>(cash) / scale; }

  /// A price without a trade, as of an index.
  void SetPrice(std::int64_t price, int now);
  void Trade(std::int64_t price, std::int64_t shares, int now);
  /// The last price becomes the previous close.
  void StartDay(int now);
};

}  // namespace demo

#pragma once

#include <cstdint>

#include "metastock/tables.h"

// What prices make of the bar that is being made; no file is touched. Any floats are fine: a sum
// that doesn't fit leaves its field as it was.
namespace metastock {

/// What the last bar of the file is to become.
enum class Change { none, rewritten, followed };

/// Nothing is stored of what lacks a price.
[[nodiscard]] inline bool LacksPrices(const Bar& bar) {
  return bar.Close == 0 || bar.Low == 0 || bar.High == 0;
}

/// A high of twice the low is taken for a wrong low.
inline void MendLow(Bar& bar) {
  if (bar.High / 2 > bar.Low) bar.Low = bar.Close;
}

/// A quote: `bar` comes with the extremes and the volume of the day so far, and leaves, unless
/// nothing is to change, with those of the bar. `period` is in minutes.
[[nodiscard]] Change TakeQuote(BarState& state, std::int16_t period, Bar& bar);

/// A row of history, which leaves with the extremes and the summed volume of the bar. Rows that
/// come late change nothing.
[[nodiscard]] Change TakeRow(BarState& state, std::int16_t period, Bar& bar);

}  // namespace metastock

#pragma once

#include <cstddef>
#include <string_view>

#include "metastock/tables.h"
#include "store/instrument.h"

// Rows of history as the server sends them: IEEE floats at fixed places. All arithmetic is in
// float32. Any bytes are fine: a row with numbers that are none isn't valid.
namespace metastock {

inline constexpr std::size_t kIntradayRow = 28, kDailyRow = 124;

/// `row` holds a whole row.
[[nodiscard]] Bar DecodeIntraday(std::string_view row);
[[nodiscard]] Bar DecodeDaily(std::string_view row);

/// Of the place of an intraday row: there are no such dates among the rows that count.
[[nodiscard]] bool IsFiller(const Bar& bar);
/// Mends what old rows are known to have wrong. `lowprev` is the low of the row before, 0 at first,
/// and becomes that of this one.
void Repair(Bar& bar, float& lowprev);
[[nodiscard]] bool IsValidIntraday(const Bar& bar);
[[nodiscard]] bool IsValidDaily(const Bar& bar);
/// The close for each of low, open and high that is 0; no volume below 0.
void FillZeros(Bar& bar);
/// `FillZeros` where one of date and prices but the open is 0, or the volume is negative. False for
/// a bar that has such a 0 still.
[[nodiscard]] bool Complete(Bar& bar);
/// Prices of shares (codes of just three characters) were in pesetas up to the end of 1998.
void ConvertPesetas(const store::Codigo& code, Bar& bar);
/// Not for a row all of whose prices are next to nothing.
[[nodiscard]] bool IsWorthStoring(const Bar& bar);

/// The row that ends the daily history of an instrument.
[[nodiscard]] bool IsEndMarker(std::string_view row);

}  // namespace metastock

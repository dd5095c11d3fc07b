#pragma once

#include <string>

#include "metastock/stores.h"

// Bars into the data files. Each operation opens the file, uses it once and closes it: the package
// may use it in between. Nothing goes to record 0 or below, and the number of the last record stays
// at 32767, whose bar is then written over. A `path` of "" writes nothing,
// nor does one that can't be opened for its number.
namespace metastock {

/// Writes `bar` over the last one of an intraday file, or behind it where it `follows`.
void WriteIntradayBar(const std::string& path, bool wide, bool follows, const Bar& bar);

/// Writes `bar` over the last one of a daily file, or behind it where its date is later. A narrow
/// file keeps the number of its last record in the first two bytes of its first bar, not in the
/// header; of a wide one the last date is asked of ReadDailyBar.
void WriteNarrowDailyBar(const std::string& path, const Bar& bar);
void WriteWideDailyBar(Stores& stores, int file_number, const Bar& bar);

}  // namespace metastock

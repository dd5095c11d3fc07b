#pragma once

#include <string>

#include "metastock/stores.h"

// Bars into the data files. Each operation opens the file, uses it once and closes it: the package
// may use it in between. Nothing goes to record 0 or below, and the number of the last record stays
// at 32767, whose bar is then written over. A `path` of "" writes nothing.
namespace metastock {

/// Writes `bar` over the last one of an intraday file, or behind it where it is to be `followed`.
void WriteIntradayBar(const std::string& path, bool wide, bool followed, const Bar& bar);

/// Writes `bar` over the last one of a daily file, or behind it where its date is later. A narrow
/// file keeps the number of its last record in the first two bytes of its first bar, not in the
/// header; of a wide one the last date is asked of ReadDailyBar.
void WriteNarrowDailyBar(const std::string& path, const Bar& bar);
void WriteWideDailyBar(Stores& stores, int file_number, const Bar& bar);

}  // namespace metastock

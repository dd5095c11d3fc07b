#pragma once

#include <string>

#include "metastock/stores.h"

// "path.cfg": where the stores are. A record of 53 bytes each, drive and directory, the intraday
// store first.
namespace metastock {

/// Takes over the drives and directories that the file holds in whole records; the others stay. A
/// missing file is created empty.
void ReadPathFile(const std::string& file, Stores& stores);
/// Writes both records; what stands behind them in the file stays. False leaves the file as it was.
[[nodiscard]] bool WritePathFile(const std::string& file, const Stores& stores);

}  // namespace metastock

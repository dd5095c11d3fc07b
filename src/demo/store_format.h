#pragma once

#include <span>
#include <string>
#include <vector>

#include "demo/history.h"

// Files of the charting package, written whole.
namespace demo::store_format {

/// A share in a store. The instrument outlives it.
struct Entry {
  const Instrument& state;
  std::vector<HistoryBar> bars;  // at least one
  int minutes = 0;               // of a bar; 0 for days
  bool wide = true;              // with opening prices
};

/// The number as data files hold it: Microsoft Binary Format, with zero as four zero bytes.
void AppendMbf(std::string& out, float value);

/// "Fnn.dat".
[[nodiscard]] std::string DataFile(const Entry& entry);
/// "MASTER" and "EMASTER", the package's two lists of the same files. The first entry has file 1.
[[nodiscard]] std::string Master(std::span<const Entry> entries);
[[nodiscard]] std::string EMaster(std::span<const Entry> entries);

}  // namespace demo::store_format

#pragma once

#include <string>
#include <vector>

#include "demo/history.h"

namespace demo {

/// A file by its name below the stores' directory, with "/".
struct SampleFile {
  std::string name, bytes;
};

/// A daily store (kSampleDaily) and an intraday one (kSampleIntraday) of the charting package, with
/// some shares' history that ends days before `history` does, for a terminal to bring up to date.
/// File numbers are the positions in the directory. All daily files have
/// opening prices, one intraday file has none, and one is so far behind that its reply breaks off.
[[nodiscard]] std::vector<SampleFile> SampleStores(const History& history);

inline constexpr char kSampleDaily[] = "diario", kSampleIntraday[] = "intradia";

}  // namespace demo

#include "demo/sample_stores.h"

#include <algorithm>
#include <string_view>

#include "demo/store_format.h"

namespace demo {
namespace {

using store_format::Entry;

constexpr std::size_t kBars = 60, kDaysBehind = 8;      // of daily files
constexpr std::size_t kSessions = 3, kShortBehind = 6;  // of intraday files
constexpr std::size_t kLongBehind = 24;                 // more than one reply holds
// A terminal puts the quotes of each daily entry into the intraday entry at the same position as
// well: so both stores begin with the same shares. And whoever is quoted before its intraday
// history has come gets none: so these are shares that hardly ever trade. What trades much comes
// after them.
constexpr std::string_view kShares[] = {"CUR",   "TUN", "CFL", "ENS", "BVL.P",
                                        "CRT.B", "GRV", "LDR", "RST"};
constexpr std::string_view kNarrowIntraday = "LDR";
constexpr std::string_view kBusy[] = {"BVL", "MVB"}, kLong = "TLB";

// `count` bars, the last of them `behind` before the end.
std::vector<HistoryBar> Cut(std::vector<HistoryBar> bars, std::size_t behind, std::size_t count) {
  bars.resize(bars.size() - std::min(bars.size(), behind));
  bars.erase(bars.begin(), bars.end() - static_cast<std::ptrdiff_t>(std::min(bars.size(), count)));
  return bars;
}

void AddFiles(const std::string& store, const std::vector<Entry>& entries,
              std::vector<SampleFile>& files) {
  files.push_back({store + "/MASTER", store_format::Master(entries)});
  files.push_back({store + "/EMASTER", store_format::EMaster(entries)});
  for (std::size_t i = 0; i < entries.size(); ++i) {
    files.push_back(
        {store + "/F" + std::to_string(i + 1) + ".dat", store_format::DataFile(entries[i])});
  }
}

std::vector<Entry> DailyEntries(const History& history) {
  const Market& market = history.market();
  std::vector<Entry> entries;
  for (const std::string_view code : kShares) {
    const std::size_t slot = *market.Find(code);
    entries.push_back({market.instruments()[slot], Cut(history.Days(slot), kDaysBehind, kBars)});
  }
  return entries;
}

std::vector<Entry> IntradayEntries(const History& history) {
  const Market& market = history.market();
  std::vector<Entry> entries;
  const auto add = [&](std::string_view code, std::size_t behind) {
    const std::size_t slot = *market.Find(code);
    const int minutes = history.MinutesOf(slot);
    const auto a_day =
        static_cast<std::size_t>((SessionClock::kClose - SessionClock::kOpening) / 60 / minutes);
    entries.push_back({.state = market.instruments()[slot],
                       .bars = Cut(history.Parts(slot), behind * a_day, kSessions * a_day),
                       .minutes = minutes,
                       .wide = code != kNarrowIntraday});
  };
  for (const std::string_view code : kShares) add(code, kShortBehind);
  for (const std::string_view code : kBusy) add(code, kShortBehind);
  add(kLong, kLongBehind);
  return entries;
}

}  // namespace

std::vector<SampleFile> SampleStores(const History& history) {
  std::vector<SampleFile> files;
  AddFiles(kSampleDaily, DailyEntries(history), files);
  AddFiles(kSampleIntraday, IntradayEntries(history), files);
  return files;
}

}  // namespace demo

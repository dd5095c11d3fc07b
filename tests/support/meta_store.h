#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The charting package's side of its stores: writes them as it does, and reads back what the bridge
// wrote, by arithmetic of its own.
namespace support {

/// What a data file holds.
enum class BarKind { daily, daily_open, intraday, intraday_open };
/// Bytes of a bar: 20, 24, 24, 28.
[[nodiscard]] std::size_t WidthOf(BarKind kind);

/// Fields that a file doesn't hold are 0.
struct StoredBar {
  float date = 0, time = 0, open = 0, high = 0, low = 0, close = 0, volume = 0;
  friend bool operator==(const StoredBar&, const StoredBar&) = default;
};

struct StoredEntry {
  int file = 1;
  std::string symbol = {}, name = {};
  std::vector<StoredBar> bars = {};
  bool open = true;         // bars with an opening price
  std::int16_t period = 5;  // of an intraday entry
  float inicio = 0, fin = 0;
  char time_frame = 'D';
};

/// As a value of the files. 0 is four zero bytes; the bridge writes another, tiny number for it,
/// 2^-127, which reads as just that.
[[nodiscard]] std::string Mbf(double value);
[[nodiscard]] double MbfValue(std::string_view bytes);

/// A whole data file, its header counting the bars.
[[nodiscard]] std::string DataFile(BarKind kind, const std::vector<StoredBar>& bars);
/// The bars that the header counts, as far as they are there.
[[nodiscard]] std::vector<StoredBar> BarsIn(std::string_view file, BarKind kind);
/// "F7.DAT" in `directory`.
[[nodiscard]] std::string DataPath(const std::string& directory, int file);

/// Directory files for those entries, without the data files.
[[nodiscard]] std::string MasterFile(const std::vector<StoredEntry>& entries);
[[nodiscard]] std::string EMasterFile(const std::vector<StoredEntry>& entries);

/// A whole store: "MASTER" or "EMASTER", and the data files, in capitals.
void WriteDailyStore(const std::string& directory, const std::vector<StoredEntry>& entries);
void WriteIntradayStore(const std::string& directory, const std::vector<StoredEntry>& entries);

/// None of a missing file; -1.
[[nodiscard]] std::vector<StoredBar> ReadBars(const std::string& path, BarKind kind);
[[nodiscard]] int LastRecord(const std::string& path);

}  // namespace support

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/fixed_text.h"
#include "base/record_file.h"
#include "metastock/store_files.h"
#include "metastock/tables.h"

namespace metastock {

/// The two stores of the charting package: their directories, the tables read from their directory
/// files, and the readers of bars. Reads "MASTER", "EMASTER" and Fnn.dat (names whatever their
/// case); creates a data file that is missing, empty, but never a directory file: a missing one
/// counts as empty. Whatever fails leaves the values at hand; a read past the end of a file leaves
/// what its own record held before. Counts are cut to 0 to 500. No file is touched while its
/// directory is empty or the root. Files are opened, used once and closed: the package may use them
/// in between.
class Stores {
 public:
  static constexpr int kMaxEntries = 500;
  template <typename T>
  using Table = std::vector<T>;  // by entry from 1, kMaxEntries + 1 slots

  Stores();
  Stores(const Stores&) = delete;
  Stores& operator=(const Stores&) = delete;

  base::FixedText<3> MasterDrive, EMasterDrive;
  base::FixedText<50> MasterDir, EMasterDir;  // daily, intraday

  std::int16_t MasterCount = 0, EMasterCount = 0;
  Table<MasterEntry> MasterTable;
  Table<EMasterEntry> EMasterTable;
  Table<std::uint64_t> MasterCodes, EMasterCodes;       // store::WholeCode of the entry's code
  Table<std::int16_t> MasterSelected, EMasterSelected;  // 1: takes part in live updating
  Table<std::int16_t> MasterWide, EMasterWide;          // 1: bars with an opening price
  Table<metastock::DailyBar> DailyLast;
  Table<metastock::BarState> BarState;

  void LoadMasterDir();
  void LoadEMasterDir();

  /// Reads bar `record` of daily file `file_number` into DailyWork, which is left as it is where
  /// the file holds no bar. Whether its bars are wide is read at MasterWide[file_number], and what
  /// a narrow one gives is the last wide bar read.
  void ReadDailyBar(int file_number, std::int64_t record);
  /// Reads bar `record` of the first intraday entry with that file into IntradayWork; all 0 where
  /// the file holds no bar.
  void ReadIntradayBar(int file_number, std::int64_t record);
  metastock::DailyBar DailyWork;
  Bar IntradayWork;

  using Cut = metastock::Cut;
  /// Full path of data file `file_number`; "" while there is no directory, and for what isn't a
  /// regular file. Looked up once, until the store's directory changes or is loaded again.
  [[nodiscard]] const std::string& DailyFile(int file_number, Cut cut);
  [[nodiscard]] const std::string& IntradayFile(int file_number, Cut cut);

  /// How many entries are selected, in both tables.
  [[nodiscard]] int CountSelected() const;

 private:
  static constexpr std::size_t kDataHeader = 4;

  void LoadDailyEntry(std::size_t i);
  void LoadIntradayEntry(std::size_t i);
  void ReadLastRec(const std::string& path);
  // Gives the file's bytes; nothing where it doesn't open.
  std::optional<std::int64_t> ReadLastRecAndLength(const std::string& path);
  void TakeLastRec(const base::RecordFile& file);

  DataFiles daily_files_{MasterDir}, intraday_files_{EMasterDir};
  // What was read last, of whatever file: kept for a file that can't be read.
  std::int16_t last_rec_ = 0;
  std::array<float, 6> wide_daily_{}, narrow_intraday_{};
  std::array<float, 7> wide_intraday_{};
};

/// The slot of a day that `time` (HHMMSS) falls into, in bars of `period` minutes. Hours and
/// minutes are read from the decimal text of `time`, too far right for times before 01:00. 0 where
/// it can't be divided or held.
[[nodiscard]] std::int16_t SlotOf(float time, std::int16_t period);

}  // namespace metastock

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/fixed_text.h"
#include "metastock/tables.h"

namespace metastock {

/// The two stores of the charting package: their directories, the tables read from their directory
/// files, and the readers of bars. Reads "MASTER", "EMASTER" and Fnn.dat (names whatever their
/// case) and creates a data file that is missing, empty. Whatever fails leaves the values at hand;
/// a read past the end of a file leaves what its own record held before. Counts are cut to 0 to
/// 500. No file is touched while its directory is empty or the root. Files are opened, used once
/// and closed: the package may use them in between.
class Stores {
 public:
  static constexpr int kMaxEntries = 500;
  template <typename T>
  using Table = std::vector<T>;  // by entry from 1, kMaxEntries + 1 slots

  Stores();

  base::FixedText<3> MasterDrive, EMasterDrive;
  base::FixedText<50> MasterDir, EMasterDir;  // daily, intraday

  std::int16_t MasterCount = 0, EMasterCount = 0;
  Table<MasterEntry> MasterTable;
  Table<EMasterEntry> EMasterTable;
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

  /// Where the text of a directory ends: its routines differ, and so do their files where its path
  /// holds a blank.
  enum class Cut { single_blank, double_blank };
  /// The directory as UTF-8, up to the cut; "" for none and for the root.
  [[nodiscard]] static std::string DirectoryOf(const base::FixedText<50>& text, Cut cut);
  /// Full path of data file `file_number`; "" while there is no directory, and for what isn't a
  /// regular file. Looked up once, until the store's directory is loaded again.
  [[nodiscard]] const std::string& DailyFile(int file_number, Cut cut);
  [[nodiscard]] const std::string& IntradayFile(int file_number, Cut cut);

  /// How many entries are selected, in both tables.
  [[nodiscard]] int CountSelected() const;
};

/// The slot of a day that `time` (HHMMSS) falls into, in bars of `period` minutes. Hours and
/// minutes are read from the decimal text of `time`, one place too far right for times before
/// 01:00. 0 where it can't be divided or held.
[[nodiscard]] std::int16_t SlotOf(float time, std::int16_t period);

}  // namespace metastock

// The loaders of both stores: the tables from the directory files, and the last bars.

#include <algorithm>
#include <string_view>

#include "base/bytes.h"
#include "base/program_dir.h"
#include "base/record_file.h"
#include "metastock/stores.h"

namespace metastock {
namespace {

using base::FieldAt;
using base::TextField;

constexpr std::size_t kHeader = 40;
constexpr std::size_t kMasterStep = 53, kMasterEntry = 43;
constexpr std::size_t kEMasterStep = 192;

// What a directory file holds, up to the last entry that there is room for. Nothing is created.
std::string ReadDirectoryFile(const std::string& directory, std::string_view name,
                              std::size_t step) {
  std::string content;
  if (directory.empty()) return content;
  const std::string path = base::ProgramDir(directory).Path(name);
  (void)base::ReadFileStart(path, (Stores::kMaxEntries + 1) * step, content);
  return content;
}

std::int16_t CountIn(std::string_view content) {
  std::int16_t count = 0;
  if (content.size() >= kHeader) (void)base::ReadField(content, 0, count);
  return std::clamp<std::int16_t>(count, 0, Stores::kMaxEntries);
}

// Both take a whole entry. What the dates will be is found out from the data file.
void Decode(std::string_view bytes, MasterEntry& entry) {
  entry.FileNumber = FieldAt<std::uint8_t>(bytes, 0);
  entry.Name.assign(TextField(bytes, 7, 16));
  entry.TimeFrame = bytes[33];
  entry.Symbol.assign(TextField(bytes, 36, 7));
}

void Decode(std::string_view bytes, EMasterEntry& entry) {
  entry.FileNumber = FieldAt<std::int16_t>(bytes, 2);
  entry.Symbol.assign(TextField(bytes, 11, 8));
  entry.Name.assign(TextField(bytes, 32, 16));
  entry.TimeFrame = bytes[60];
  entry.Period = FieldAt<std::int16_t>(bytes, 62);
  entry.Inicio = FieldAt<float>(bytes, 80);
  entry.Fin = FieldAt<float>(bytes, 84);
}

// Entries that aren't there whole stay as they were.
template <typename Entry>
void DecodeAll(std::string_view content, std::size_t step, std::size_t width, std::int16_t count,
               Stores::Table<Entry>& table, Stores::Table<std::uint64_t>& codes) {
  for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
    const std::string_view bytes = TextField(content, i * step, width);
    if (bytes.size() == width) Decode(bytes, table[i]);
    codes[i] = store::WholeCode(CodeOf(table[i].Symbol.bytes()));
  }
}

}  // namespace

std::optional<std::int64_t> Stores::ReadLastRecAndLength(const std::string& path) {
  if (path.empty()) return std::nullopt;
  const base::RecordFile file(path, kDataHeader);
  if (!file.is_open()) return std::nullopt;
  TakeLastRec(file);
  return file.length();
}

void Stores::LoadMasterDir() {
  daily_files_.Forget();
  const std::string content =
      ReadDirectoryFile(DirectoryOf(MasterDir, Cut::single_blank), "MASTER", kMasterStep);
  MasterCount = CountIn(content);
  DecodeAll(content, kMasterStep, kMasterEntry, MasterCount, MasterTable, MasterCodes);
  for (std::size_t i = 1; i <= static_cast<std::size_t>(MasterCount); ++i) LoadDailyEntry(i);
}

void Stores::LoadDailyEntry(std::size_t i) {
  MasterEntry& entry = MasterTable[i];
  MasterSelected[i] = 0;
  const auto length = ReadLastRecAndLength(DailyFile(entry.FileNumber, Cut::single_blank));
  MasterWide[i] = length == std::int64_t{last_rec_} * 20 ? 0 : 1;
  ReadDailyBar(entry.FileNumber, 2);
  entry.FirstDate = DailyWork.Date;
  ReadDailyBar(entry.FileNumber, last_rec_);
  entry.LastDate = DailyWork.Date;
  DailyLast[i] = DailyWork;
}

void Stores::LoadEMasterDir() {
  intraday_files_.Forget();
  const std::string content =
      ReadDirectoryFile(DirectoryOf(EMasterDir, Cut::double_blank), "EMASTER", kEMasterStep);
  EMasterCount = CountIn(content);
  DecodeAll(content, kEMasterStep, kEMasterStep, EMasterCount, EMasterTable, EMasterCodes);
  for (std::size_t i = 1; i <= static_cast<std::size_t>(EMasterCount); ++i) LoadIntradayEntry(i);
}

void Stores::LoadIntradayEntry(std::size_t i) {
  EMasterEntry& entry = EMasterTable[i];
  auto& state = BarState[i];
  EMasterSelected[i] = EMasterWide[i] = 0;
  state.Open = entry.Inicio;
  state.Aux = entry.Fin;
  const auto length = ReadLastRecAndLength(IntradayFile(entry.FileNumber, Cut::double_blank));
  const std::int64_t records = last_rec_ == 0 ? 1 : last_rec_;
  if (length && *length / records == 28) EMasterWide[i] = 1;
  ReadIntradayBar(entry.FileNumber, records);
  state.Date = entry.LastDate = IntradayWork.Date;
  state.Time = IntradayWork.Time;
  state.Close = IntradayWork.Close;
  state.High = IntradayWork.High;
  state.Low = IntradayWork.Low;
  state.VolumeBase = IntradayWork.Volume;
  if (entry.Period > 0) state.Slot = SlotOf(state.Time, entry.Period);
  if (entry.Period == 0) entry.Period = 1;
}

}  // namespace metastock

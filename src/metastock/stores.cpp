#include "metastock/stores.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/bytes.h"
#include "base/masks.h"
#include "base/record_file.h"
#include "base/text.h"
#include "base/val.h"
#include "metastock/mbf.h"

namespace metastock {
namespace {

using base::RecordFile;

// Opens, reads, closes. The record in one piece; what isn't there whole leaves `fields` alone.
template <std::size_t N>
void ReadBar(const std::string& path, std::int64_t record, std::array<float, N>& fields) {
  std::array<char, N * sizeof(Field)> bytes{};
  if (path.empty()) return;
  if (RecordFile(path, bytes.size(), RecordFile::Known{}).ReadMany(record, bytes) != 1) return;
  const std::string_view text(bytes.data(), bytes.size());
  for (std::size_t i = 0; i < N; ++i) fields[i] = FromMbf(text.substr(i * sizeof(Field)));
}

int CountOnes(const Stores::Table<std::int16_t>& flags, std::int16_t entries) {
  return static_cast<int>(std::count(flags.begin() + 1, flags.begin() + 1 + entries, 1));
}

double NumberAt(std::string_view text, std::size_t position) {
  return base::Val(base::Mid(text, position, 2)).value_or(0);
}

}  // namespace

Stores::Stores()
    : MasterTable(kMaxEntries + 1),
      EMasterTable(kMaxEntries + 1),
      MasterCodes(kMaxEntries + 1),
      EMasterCodes(kMaxEntries + 1),
      MasterSelected(kMaxEntries + 1),
      EMasterSelected(kMaxEntries + 1),
      MasterWide(kMaxEntries + 1),
      EMasterWide(kMaxEntries + 1),
      DailyLast(kMaxEntries + 1),
      BarState(kMaxEntries + 1) {}

void Stores::TakeLastRec(const RecordFile& file) {
  std::array<char, kDataHeader> header{};
  if (file.ReadMany(1, header) != 1) return;
  (void)base::ReadField({header.data(), header.size()}, 2, last_rec_);
}

void Stores::ReadLastRec(const std::string& path) {
  if (!path.empty()) TakeLastRec(RecordFile(path, kDataHeader, RecordFile::Known{}));
}

void Stores::ReadDailyBar(int file_number, std::int64_t record) {
  const std::string& path = DailyFile(file_number, Cut::single_blank);
  ReadLastRec(path);
  if (last_rec_ <= 1) return;
  // A flag is kept by position and asked by file number, and what a narrow file holds is dropped
  // for the last wide bar: so it isn't read.
  const bool known = file_number >= 0 && file_number <= kMaxEntries;
  if (known && MasterWide[static_cast<std::size_t>(file_number)] == 1) {
    ReadBar(path, record, wide_daily_);
  }
  const auto& [date, open, high, low, close, volume] = wide_daily_;
  DailyWork = {date, high, low, close, volume};
}

void Stores::ReadIntradayBar(int file_number, std::int64_t record) {
  std::size_t entry = 1;
  const auto last = static_cast<std::size_t>(EMasterCount);
  while (entry <= last && EMasterTable[entry].FileNumber != file_number) ++entry;
  const bool wide = entry <= last && EMasterWide[entry] == 1;

  const std::string& path = IntradayFile(file_number, Cut::double_blank);
  ReadLastRec(path);
  if (last_rec_ < 2) {
    IntradayWork = {};
  } else if (wide) {
    ReadBar(path, record, wide_intraday_);
    const auto& [date, time, open, high, low, close, volume] = wide_intraday_;
    IntradayWork = {date, time, open, high, low, close, volume};
  } else {
    ReadBar(path, record, narrow_intraday_);
    const auto& [date, time, high, low, close, volume] = narrow_intraday_;
    IntradayWork = {date, time, close, high, low, close, volume};
  }
}

const std::string& Stores::DailyFile(int file_number, Cut cut) {
  return daily_files_.Path(file_number, cut);
}

const std::string& Stores::IntradayFile(int file_number, Cut cut) {
  return intraday_files_.Path(file_number, cut);
}

int Stores::CountSelected() const {
  return CountOnes(MasterSelected, MasterCount) + CountOnes(EMasterSelected, EMasterCount);
}

std::int16_t SlotOf(float time, std::int16_t period) {
  const std::string text = " " + base::NumberText(time);
  double hours = 0, minutes = 0;
  if (time > 95959) {
    hours = NumberAt(text, 2);
    minutes = NumberAt(text, 4);
  }
  if (time < 100000) {
    hours = NumberAt(text, 1);
    minutes = NumberAt(text, 3);
  }
  if (period == 0) return 0;
  return base::ToInteger<std::int16_t>(std::trunc((hours * 60 + minutes) / period)).value_or(0);
}

}  // namespace metastock

#include "metastock/bar_files.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "base/bytes.h"
#include "base/record_file.h"
#include "base/val.h"
#include "metastock/mbf.h"

namespace metastock {
namespace {

using base::RecordFile;

constexpr std::size_t kNumber = 2;     // bytes of the number of the last record
constexpr std::int64_t kInHeader = 2;  // where it stands, in records of its own size
constexpr std::size_t kNarrowDaily = 20;
constexpr std::int64_t kInFirstBar = 11;

template <typename... Floats>
std::array<char, sizeof...(Floats) * sizeof(Field)> Encode(Floats... fields) {
  const std::array<Field, sizeof...(Floats)> mbf{IeeeToMbf(std::bit_cast<Field>(fields))...};
  return std::bit_cast<std::array<char, sizeof mbf>>(mbf);
}

template <std::size_t N>
std::string_view TextOf(const std::array<char, N>& bytes) {
  return {bytes.data(), N};
}

void ReadNumber(const RecordFile& file, std::int64_t at, std::int16_t& number) {
  std::array<char, kNumber> bytes{};
  if (file.ReadMany(at, bytes) == 1) (void)base::ReadField(TextOf(bytes), 0, number);
}

void WriteNumber(RecordFile& file, std::int64_t at, std::int16_t number) {
  file.Write(at, TextOf(std::bit_cast<std::array<char, kNumber>>(number)));
}

// The number of the last record, 0 where it can't be read.
std::int16_t LastRecord(const std::string& path) {
  std::int16_t number = 0;
  ReadNumber(RecordFile(path, kNumber, RecordFile::Known{}), kInHeader, number);
  return number;
}

// The number of the record to write: that of the last one, `last` where it can't be read, or the
// next one where a bar is to follow. 0, so none, while the file doesn't open: a number guessed
// would cost the bar that stands there.
std::int16_t CountBar(const std::string& path, bool follows, std::int16_t last) {
  RecordFile file(path, kNumber, RecordFile::Known{});
  if (!file.is_open()) return 0;
  ReadNumber(file, kInHeader, last);
  if (!follows) return last;
  last = base::CheckedIncrement(last);
  WriteNumber(file, kInHeader, last);
  return last;
}

template <std::size_t N>
void WriteRecord(const std::string& path, std::int16_t n, const std::array<char, N>& record) {
  RecordFile(path, N, RecordFile::Known{}).Write(n, TextOf(record));
}

// 0 where the file has no such record.
float DateInNarrowDaily(const RecordFile& file, std::int16_t n) {
  constexpr std::int64_t kNumbers = kNarrowDaily / kNumber;
  std::array<char, kNarrowDaily> record{};
  const std::size_t read = file.ReadMany((n - 1) * kNumbers + 1, record);
  return read == kNumbers ? FromMbf(TextOf(record)) : 0;
}

}  // namespace

void WriteIntradayBar(const std::string& path, bool wide, bool follows, const Bar& bar) {
  if (path.empty()) return;
  const std::int16_t n = CountBar(path, follows, 0);
  const auto& [date, time, open, high, low, close, volume] = bar;
  if (wide) {
    WriteRecord(path, n, Encode(date, time, open, high, low, close, volume));
  } else {
    WriteRecord(path, n, Encode(date, time, high, low, close, volume));
  }
}

void WriteNarrowDailyBar(const std::string& path, const Bar& bar) {
  if (path.empty()) return;
  std::int16_t n = 0;
  {
    RecordFile file(path, kNumber, RecordFile::Known{});
    if (!file.is_open()) return;
    ReadNumber(file, kInFirstBar, n);
    n = std::max<std::int16_t>(n, 2);
    if (DateInNarrowDaily(file, n) < bar.Date) {
      n = base::CheckedIncrement(n);
      WriteNumber(file, kInFirstBar, n);
    }
  }
  WriteRecord(path, n, Encode(bar.Date, bar.High, bar.Low, bar.Close, bar.Volume));
}

void WriteWideDailyBar(Stores& stores, int file_number, const Bar& bar) {
  const std::string& path = stores.DailyFile(file_number, Stores::Cut::single_blank);
  if (path.empty()) return;
  const std::int16_t last = LastRecord(path);
  stores.ReadDailyBar(file_number, last);
  const std::int16_t n = CountBar(path, stores.DailyWork.Date < bar.Date, last);
  WriteRecord(path, n, Encode(bar.Date, bar.Open, bar.High, bar.Low, bar.Close, bar.Volume));
}

}  // namespace metastock

#include "demo/store_format.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "base/bytes.h"

namespace demo::store_format {
namespace {

using base::AppendField;
using base::PutBytes;

constexpr std::size_t kMasterSize = 53, kEMasterSize = 192;
constexpr std::size_t kNameSize = 16, kSymbolSize = 14;
constexpr std::int16_t kMostRecords = 32'000;  // that the package may add to

template <typename T>
void Put(std::string& record, std::size_t offset, T value) {
  std::string field;
  AppendField(field, value);
  PutBytes(record, offset, field);
}

std::string Padded(std::string_view text, std::size_t size, char with) {
  std::string out(text.substr(0, size));
  out.resize(size, with);
  return out;
}

std::size_t FieldsOf(const Entry& entry) {
  return std::size_t{5} + (entry.minutes > 0 ? 1 : 0) + (entry.wide ? 1 : 0);
}

char TimeFrameOf(const Entry& entry) { return entry.minutes > 0 ? 'I' : 'D'; }

float Mbf(int value) {
  std::string bytes;
  AppendMbf(bytes, static_cast<float>(value));
  float raw = 0;
  (void)base::ReadField(bytes, 0, raw);
  return raw;
}

std::string Header(std::size_t count, std::size_t size) {
  std::string header(size, '\0');
  Put(header, 0, static_cast<std::int16_t>(count));
  Put(header, 2, static_cast<std::int16_t>(count));  // the last file number
  return header;
}

std::string MasterRecord(const Entry& entry, std::size_t number) {
  std::string record(kMasterSize, '\0');
  Put(record, 0, static_cast<std::uint8_t>(number));
  record[1] = 'e';  // the kind of the data file
  Put(record, 3, static_cast<std::uint8_t>(FieldsOf(entry) * 4));
  Put(record, 4, static_cast<std::uint8_t>(FieldsOf(entry)));
  PutBytes(record, 7, Padded(entry.state.name.bytes(), kNameSize, ' '));
  Put(record, 25, Mbf(entry.bars.front().date));
  Put(record, 29, Mbf(entry.bars.back().date));
  record[33] = TimeFrameOf(entry);
  Put(record, 34, static_cast<std::int16_t>(entry.minutes));
  PutBytes(record, 36, Padded(entry.state.code.trimmed(), kSymbolSize, ' '));
  record[50] = record[51] = ' ';
  return record;
}

std::string EMasterRecord(const Entry& entry, std::size_t number) {
  std::string record(kEMasterSize, '\0');
  record[0] = record[1] = '6';
  Put(record, 2, static_cast<std::int16_t>(number));
  Put(record, 6, static_cast<std::uint8_t>(FieldsOf(entry)));
  PutBytes(record, 11, Padded(entry.state.code.trimmed(), kSymbolSize, '\0'));
  PutBytes(record, 32, Padded(entry.state.name.bytes(), kNameSize, ' '));
  record[60] = TimeFrameOf(entry);
  Put(record, 62, static_cast<std::int16_t>(entry.minutes));
  Put(record, 64, static_cast<float>(entry.bars.front().date));
  Put(record, 68, static_cast<float>(entry.bars.front().time));
  Put(record, 72, static_cast<float>(entry.bars.back().date));
  Put(record, 76, static_cast<float>(entry.bars.back().time));
  Put(record, 80, static_cast<float>(TimeOf(SessionClock::kOpening)));
  Put(record, 84, static_cast<float>(TimeOf(SessionClock::kClose)));
  return record;
}

}  // namespace

// An IEEE float with its exponent in the last byte and two more than there, the sign below it.
void AppendMbf(std::string& out, float value) {
  if (value == 0) {
    out.append(4, '\0');
    return;
  }
  const auto bits = std::bit_cast<std::uint32_t>(value);
  const std::uint32_t exponent = (bits >> 23 & 0xFF) + 2, sign = bits >> 31;
  AppendField(out, exponent << 24 | sign << 23 | (bits & 0x7FFFFF));
}

std::string DataFile(const Entry& entry) {
  std::string file;
  AppendField(file, kMostRecords);
  AppendField(file, static_cast<std::int16_t>(entry.bars.size() + 1));  // the first one is this
  file.resize(FieldsOf(entry) * 4);
  for (const HistoryBar& bar : entry.bars) {
    AppendMbf(file, static_cast<float>(bar.date));
    if (entry.minutes > 0) AppendMbf(file, static_cast<float>(bar.time));
    if (entry.wide) AppendMbf(file, entry.state.Price(bar.bar.open));
    AppendMbf(file, entry.state.Price(bar.bar.high));
    AppendMbf(file, entry.state.Price(bar.bar.low));
    AppendMbf(file, entry.state.Price(bar.bar.close));
    AppendMbf(file, static_cast<float>(bar.bar.volume));
  }
  return file;
}

std::string Master(std::span<const Entry> entries) {
  std::string file = Header(entries.size(), kMasterSize);
  for (std::size_t i = 0; i < entries.size(); ++i) file += MasterRecord(entries[i], i + 1);
  return file;
}

std::string EMaster(std::span<const Entry> entries) {
  std::string file = Header(entries.size(), kEMasterSize);
  for (std::size_t i = 0; i < entries.size(); ++i) file += EMasterRecord(entries[i], i + 1);
  return file;
}

}  // namespace demo::store_format

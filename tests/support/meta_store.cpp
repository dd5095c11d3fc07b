#include "support/meta_store.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

#include "support/bytes.h"

namespace support {
namespace {

constexpr std::size_t kField = 4;

// The fields of a bar in the order of the file.
std::vector<float StoredBar::*> FieldsOf(BarKind kind) {
  using B = StoredBar;
  switch (kind) {
    case BarKind::daily:
      return {&B::date, &B::high, &B::low, &B::close, &B::volume};
    case BarKind::daily_open:
      return {&B::date, &B::open, &B::high, &B::low, &B::close, &B::volume};
    case BarKind::intraday:
      return {&B::date, &B::time, &B::high, &B::low, &B::close, &B::volume};
    case BarKind::intraday_open:
      break;
  }
  return {&B::date, &B::time, &B::open, &B::high, &B::low, &B::close, &B::volume};
}

std::string Read(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void Write(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

float DateOf(const StoredEntry& entry, bool last) {
  if (entry.bars.empty()) return 0;
  return last ? entry.bars.back().date : entry.bars.front().date;
}

std::string Header(std::size_t entries, std::size_t width) {
  std::string header = I16(static_cast<std::int16_t>(entries));
  header.resize(width);
  return header;
}

void WriteDataFiles(const std::string& directory, const std::vector<StoredEntry>& entries,
                    BarKind closed, BarKind open) {
  for (const StoredEntry& entry : entries) {
    Write(DataPath(directory, entry.file), DataFile(entry.open ? open : closed, entry.bars));
  }
}

}  // namespace

std::size_t WidthOf(BarKind kind) { return FieldsOf(kind).size() * kField; }

std::string Mbf(double value) {
  int exponent = 0;
  const double mantissa = std::frexp(std::abs(value), &exponent);  // 0.5 to 1
  if (mantissa == 0) return std::string(kField, '\0');
  const auto bits = static_cast<std::uint32_t>(std::ldexp(mantissa, 24)) - 0x800000U;
  const std::uint32_t sign = std::signbit(value) ? 0x800000U : 0;
  return Field(bits | sign | static_cast<std::uint32_t>(exponent + 128) << 24U);
}

double MbfValue(std::string_view bytes) {
  std::uint32_t bits = 0;
  if (!base::ReadField(bytes, 0, bits) || bits >> 24U == 0) return 0;
  const auto mantissa = static_cast<double>((bits & 0x7FFFFFU) | 0x800000U);
  const double value = std::ldexp(mantissa, static_cast<int>(bits >> 24U) - 128 - 24);
  return (bits & 0x800000U) != 0 ? -value : value;
}

std::string DataFile(BarKind kind, const std::vector<StoredBar>& bars) {
  std::string file = Header(bars.size() + 1, 2) + I16(static_cast<std::int16_t>(bars.size() + 1));
  file.resize(WidthOf(kind));
  for (const StoredBar& bar : bars) {
    for (const auto field : FieldsOf(kind)) file += Mbf(bar.*field);
  }
  return file;
}

std::vector<StoredBar> BarsIn(std::string_view file, BarKind kind) {
  std::int16_t last = 0;
  (void)base::ReadField(file, 2, last);
  const std::size_t width = WidthOf(kind);
  std::vector<StoredBar> bars;
  for (std::size_t n = 1; n < static_cast<std::size_t>(std::max<std::int16_t>(last, 0)); ++n) {
    if (file.size() < (n + 1) * width) break;
    std::size_t at = n * width;
    for (const auto field : FieldsOf(kind)) {
      if (field == &StoredBar::date) bars.emplace_back();
      bars.back().*field = static_cast<float>(MbfValue(file.substr(at, kField)));
      at += kField;
    }
  }
  return bars;
}

std::string DataPath(const std::string& directory, int file) {
  return directory + "/F" + std::to_string(file) + ".DAT";
}

std::string MasterFile(const std::vector<StoredEntry>& entries) {
  std::string file = Header(entries.size(), 53);
  for (const StoredEntry& entry : entries) {
    const char number = static_cast<char>(entry.file);
    file += std::string(1, number) + std::string(6, '\x01') + Pad(entry.name, 16) + "\x02\x02";
    file += Mbf(DateOf(entry, false)) + Mbf(DateOf(entry, true)) + entry.time_frame;
    file += I16(0) + Pad(entry.symbol, 14) + "\x03\x03\x03";
  }
  return file;
}

std::string EMasterFile(const std::vector<StoredEntry>& entries) {
  std::string file = Header(entries.size(), 192);
  for (const StoredEntry& entry : entries) {
    std::string symbol = entry.symbol;
    symbol.resize(21);
    file += "66" + I16(static_cast<std::int16_t>(entry.file)) + std::string(7, '\x01') + symbol;
    file += Pad(entry.name, 16) + std::string(12, '\x02') + entry.time_frame + "\x03";
    file += I16(entry.period) + F32(DateOf(entry, false)) + Mbf(1) + F32(DateOf(entry, true));
    file += Mbf(1) + F32(entry.inicio) + F32(entry.fin) + std::string(104, '\x04');
  }
  return file;
}

void WriteDailyStore(const std::string& directory, const std::vector<StoredEntry>& entries) {
  Write(directory + "/MASTER", MasterFile(entries));
  WriteDataFiles(directory, entries, BarKind::daily, BarKind::daily_open);
}

void WriteIntradayStore(const std::string& directory, const std::vector<StoredEntry>& entries) {
  Write(directory + "/EMASTER", EMasterFile(entries));
  WriteDataFiles(directory, entries, BarKind::intraday, BarKind::intraday_open);
}

std::vector<StoredBar> ReadBars(const std::string& path, BarKind kind) {
  return BarsIn(Read(path), kind);
}

int LastRecord(const std::string& path) {
  std::int16_t last = -1;
  (void)base::ReadField(Read(path), 2, last);
  return last;
}

}  // namespace support

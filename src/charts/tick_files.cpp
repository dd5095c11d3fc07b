#include "charts/tick_files.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "base/record_file.h"

namespace charts {
namespace {

constexpr std::size_t kSize = 16;
constexpr std::int64_t kRecordsOfABlock = 4096;

using Bytes = std::array<char, kSize>;

Bytes Encode(const Tick& tick) {
  Bytes bytes;
  char* to = bytes.data();
  for (const float field : {tick.Precio, tick.Volumen, tick.Hora, tick.Fecha}) {
    std::memcpy(to, &field, sizeof field);
    to += sizeof field;
  }
  return bytes;
}

Tick Decode(std::string_view bytes) {
  Tick tick;
  float* const fields[] = {&tick.Precio, &tick.Volumen, &tick.Hora, &tick.Fecha};
  for (std::size_t i = 0; i < std::size(fields); ++i) {
    (void)base::ReadField(bytes, i * sizeof(float), *fields[i]);  // they are all there
  }
  return tick;
}

bool IsPlain(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
         std::string_view(" .-_&+").find(c) != std::string_view::npos;
}

void AppendName(std::string& out, const store::Codigo& code) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  for (const char c : code.bytes()) {
    const auto byte = static_cast<unsigned char>(c);
    if (IsPlain(c)) {
      out += c;
    } else {
      out += {'%', kHex[byte / 16U], kHex[byte % 16U]};
    }
  }
  out += ".TCK";
}

std::int64_t CountIn(const base::RecordFile& file) {
  return file.length() / static_cast<std::int64_t>(kSize);
}

// All 0 where it can't be read.
Tick ReadOne(const base::RecordFile& file, std::int64_t n) {
  Bytes bytes;
  if (n == 0 || file.ReadMany(n, bytes) == 0) return {};
  return Decode({bytes.data(), bytes.size()});
}

// Records `first` to `last`, as far as they can be read.
template <typename Visit>
void ReadAll(const base::RecordFile& file, std::int64_t first, std::int64_t last, Visit visit) {
  std::vector<char> block;
  while (first <= last) {
    block.resize(static_cast<std::size_t>(std::min(last - first + 1, kRecordsOfABlock)) * kSize);
    const std::size_t count = file.ReadMany(first, block);
    if (count == 0) return;
    for (std::size_t i = 0; i < count; ++i) visit(Decode({&block[i * kSize], kSize}));
    first += static_cast<std::int64_t>(count);
  }
}

// The first price above 0 is believed, and measures those after it.
class Filter {
 public:
  bool Believes(float price) {
    if (!(first_ / 2 < price)) return false;
    if (first_ == 0) first_ = price;
    return true;
  }

 private:
  float first_ = 0;
};

}  // namespace

std::string RutaTick(const store::Codigo& code) {
  std::string name;
  AppendName(name, code);
  return name;
}

const std::string& TickFiles::RutaDe(const store::Codigo& code) const {
  if (prefijo_ == 0) {
    ruta_ = dir_.Path("Ticks") + '/';
    prefijo_ = ruta_.size();
  }
  ruta_.resize(prefijo_);
  AppendName(ruta_, code);
  return ruta_;
}

void TickFiles::TickAppend(std::int16_t slot) {
  const store::Instrumento& record = store_.Instrumentos(slot);
  const Tick tick{.Precio = record.Ultimo,
                  .Volumen = record.Volumen,
                  .Hora = store_.MercadoHora == 0 ? record.Hora : store_.MercadoHora,
                  .Fecha = store_.MercadoFecha};
  if (!(record.Minimo / 2 < tick.Precio && tick.Hora > 0)) return;

  base::RecordFile file(RutaDe(record.Codigo), kSize);
  const std::int64_t n = CountIn(file);
  const Tick last = ReadOne(file, n);
  if (last.Precio == tick.Precio && last.Volumen == tick.Volumen) return;
  const Bytes bytes = Encode(tick);
  file.Write(n + 1, {bytes.data(), bytes.size()});
}

std::int64_t TickFiles::Leer(const store::Codigo& code,
                             const std::function<void(const Tick&)>& visit) const {
  const base::RecordFile file(RutaDe(code), kSize);
  const std::int64_t n = CountIn(file);
  const std::int64_t left_out = std::max<std::int64_t>(n - kMaxLeidos, 0);
  Filter filter;
  ReadAll(file, 1, std::min(left_out, kMaxLeidos),
          [&](const Tick& tick) { (void)filter.Believes(tick.Precio); });
  ReadAll(file, left_out + 1, n, [&](const Tick& tick) {
    if (filter.Believes(tick.Precio)) visit(tick);
  });
  return n;
}

}  // namespace charts

#include "views/color_records.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "base/bytes.h"
#include "base/record_file.h"
#include "base/text.h"

namespace views {
namespace {

constexpr float kFontSize = 7.0F;
constexpr std::int64_t kNoContent = 10;  // bytes of a file that counts as absent
constexpr std::size_t kNameAt = 16, kNameSize = 30;
constexpr std::string_view kWindowsFile = "Colores.QUO", kColorsFile = "COLORES.SET";

// The fields of both records by their offset; `visit` reads or writes one.
template <typename Record, typename Visit>
void VisitConfig(Record& record, const Visit& visit) {
  visit(0, record.VentanaFondo);
  visit(4, record.VentanaSube);
  visit(8, record.VentanaBaja);
  visit(12, record.VentanaRepite);
  visit(46, record.GridLines);
  visit(48, record.FontSize);
}

template <typename Record, typename Visit>
void VisitColors(Record& record, const Visit& visit) {
  visit(0, record.ColorSubeTexto);
  visit(4, record.ColorBajaTexto);
  visit(8, record.ColorNormalTexto);
  visit(46, record.SetFontSize);
  visit(48, record.ColorSubeFondo);
  visit(52, record.ColorBajaFondo);
  visit(56, record.ColorRepiteFondo);
  visit(60, record.ColorMovSube);
  visit(64, record.ColorMovBaja);
  visit(68, record.ColorMovRepite);
}

auto ReaderOf(std::string_view bytes) {
  return [bytes](std::size_t offset, auto& field) {
    (void)base::ReadField(bytes, offset, field);  // a missing field keeps its default
    if constexpr (std::is_same_v<decltype(field), base::Color&>) {
      // A black that a grid would take for no colour at all.
      if (field == platform::Grid::kUnset) field = base::palette::kBlack;
    }
  };
}

auto WriterTo(std::string& bytes) {
  return [&bytes](std::size_t offset, const auto& field) {
    std::memcpy(bytes.data() + offset, &field, sizeof(field));
  };
}

void PutInFile(const base::ProgramDir& dir, std::string_view file, std::size_t offset,
               std::string_view bytes) {
  const auto put = [&](std::string& content) { base::PutBytes(content, offset, bytes); };
  (void)base::EditFile(dir.Path(file), put);
}

ConfigVentanas Defaults() {
  using namespace base::palette;
  ConfigVentanas config;
  const auto set = [](ConfigVentana& entry, base::Color rising) {
    entry.VentanaFondo = kBrightWhite;
    entry.VentanaSube = rising;
    entry.VentanaBaja = kRed;
    entry.VentanaRepite = kBlack;
  };
  set(config[2], kBlue);
  set(config[4], kGreen);
  return config;
}

}  // namespace

float ConfigVentana::UsableFontSize() const {
  return FontSize > 0 && FontSize <= 72 ? FontSize : kFontSize;
}

ConfigVentana ConfigVentana::Decode(std::string_view record) {
  ConfigVentana config;
  VisitConfig(config, ReaderOf(record));
  config.FontName.assign(base::TextField(record, kNameAt, kNameSize));
  return config;
}

std::string ConfigVentana::Encode() const {
  std::string bytes(kSize, '\0');
  VisitConfig(*this, WriterTo(bytes));
  bytes.replace(kNameAt, kNameSize, FontName.bytes());
  return bytes;
}

void ReadConfigVentana(const base::ProgramDir& dir, ConfigVentanas& config) {
  const base::RecordFile file(dir.Path(kWindowsFile), ConfigVentana::kSize);
  std::string record;
  for (std::size_t n = 1; n < config.size() && file.length() > kNoContent; ++n) {
    if (file.Read(static_cast<std::int64_t>(n), record)) config[n] = ConfigVentana::Decode(record);
  }
  for (std::size_t n = 1; n <= 4; ++n) {
    if (config[n].FontSize == 0) config[n].FontSize = kFontSize;
  }
}

ConfigVentanas LoadConfigVentana(const base::ProgramDir& dir) {
  ConfigVentanas config = Defaults();
  ReadConfigVentana(dir, config);
  return config;
}

void WriteConfigVentana(const base::ProgramDir& dir, const ConfigVentanas& config) {
  std::string records;
  for (std::size_t n = 1; n < config.size(); ++n) records += config[n].Encode();
  PutInFile(dir, kWindowsFile, 0, records);
}

void ApplyLook(const ConfigVentana& config, platform::Grid& grid) {
  grid.set_back_color(config.VentanaFondo);
  grid.set_fore_color(config.VentanaRepite);
  grid.set_grid_lines(config.GridLines);
  grid.set_font_name(base::Trim(base::OneLine(config.FontName.utf8())));
  grid.set_font_size(config.UsableFontSize());
}

ColorRecord ColorRecord::Default(int number) {
  using namespace base::palette;
  ColorRecord record;
  if (number < 2 || number > 4) {
    record.ColorSubeTexto = record.ColorBajaTexto = kBrightWhite;
    record.ColorSubeFondo = kGreen;
    record.ColorBajaFondo = kRed;
    record.ColorMovSube = record.ColorMovBaja = record.ColorMovRepite = kBrightWhite;
    return record;
  }
  record.ColorSubeTexto = kGreen;
  record.ColorBajaTexto = kRed;
  // Readable on the row colours of the window.
  record.ColorNormalTexto = number == 3 ? kBlack : kBrightWhite;
  record.ColorSubeFondo = record.ColorBajaFondo = record.ColorRepiteFondo = kBrightWhite;
  return record;
}

void ColorRecord::TakeColors(const ColorRecord& other) {
  ColorSubeTexto = other.ColorSubeTexto;
  ColorBajaTexto = other.ColorBajaTexto;
  ColorNormalTexto = other.ColorNormalTexto;
  ColorSubeFondo = other.ColorSubeFondo;
  ColorBajaFondo = other.ColorBajaFondo;
  ColorRepiteFondo = other.ColorRepiteFondo;
  ColorMovSube = other.ColorMovSube;
  ColorMovBaja = other.ColorMovBaja;
  ColorMovRepite = other.ColorMovRepite;
}

ColorRecord ColorRecord::Decode(std::string_view record) {
  ColorRecord colors;
  std::copy_n(record.begin(), std::min(record.size(), kSize), colors.bytes_.begin());
  VisitColors(colors, ReaderOf(record));
  colors.SetFontName.assign(base::TextField(record, kNameAt, kNameSize));
  return colors;
}

std::string ColorRecord::Encode() const {
  std::string bytes(bytes_.data(), bytes_.size());
  VisitColors(*this, WriterTo(bytes));
  bytes.replace(kNameAt, kNameSize, SetFontName.bytes());
  return bytes;
}

ColorRecord ReadColorRecord(const base::ProgramDir& dir, int number, bool write_first) {
  base::RecordFile file(dir.Path(kColorsFile), ColorRecord::kSize);
  const ColorRecord standard = ColorRecord::Default(number);
  if (write_first && file.is_open() && file.length() == 0) file.Write(number, standard.Encode());
  std::string bytes;
  if (!file.Read(number, bytes)) return standard;
  ColorRecord record = ColorRecord::Decode(bytes);
  if (record.blank()) record.TakeColors(standard);
  return record;
}

void WriteColorRecord(const base::ProgramDir& dir, int number, const ColorRecord& record) {
  if (number < 1) return;
  const auto offset = static_cast<std::size_t>(number - 1) * ColorRecord::kSize;
  PutInFile(dir, kColorsFile, offset, record.Encode());
}

}  // namespace views

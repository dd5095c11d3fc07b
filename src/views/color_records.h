#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/fixed_text.h"
#include "base/palette.h"
#include "base/program_dir.h"
#include "platform/grid.h"

namespace views {

/// Colours and font of one market window: a record of "Colores.QUO". Holds what the file holds;
/// what can't be used as it stands is mended where it is used.
struct ConfigVentana {
  static constexpr std::size_t kSize = 52;

  base::Color VentanaFondo = base::palette::kBlack;
  base::Color VentanaSube = base::palette::kLightGreen;
  base::Color VentanaBaja = base::palette::kLightRed;
  base::Color VentanaRepite = base::palette::kBrightWhite;
  base::FixedText<30> FontName;
  std::int16_t GridLines = 1;
  float FontSize = 0;

  /// FontSize, or 7 where it is no size from just above 0 to 72 points.
  [[nodiscard]] float UsableFontSize() const;

  [[nodiscard]] static ConfigVentana Decode(std::string_view record);
  [[nodiscard]] std::string Encode() const;
};

/// Entries 1 to 5: 1 Continuo and TCartera, 2 Indices, 3 Futuros, 4 Divisas, 5 spare.
using ConfigVentanas = std::array<ConfigVentana, 6>;

/// The entries of "Colores.QUO" over the defaults. A file of up to 10 bytes counts as absent, an
/// entry that isn't there whole keeps its default. A font size of 0 becomes 7 in entries 1 to 4.
[[nodiscard]] ConfigVentanas LoadConfigVentana(const base::ProgramDir& dir);
/// The same over the entries of `config`.
void ReadConfigVentana(const base::ProgramDir& dir, ConfigVentanas& config);
/// Writes entries 1 to 5. Like every writer here it replaces the file as a whole, keeps its other
/// bytes, and leaves the old one where the disk refuses.
void WriteConfigVentana(const base::ProgramDir& dir, const ConfigVentanas& config);

/// Back and text colour, lines and font of a grid.
void ApplyLook(const ConfigVentana& config, platform::Grid& grid);

/// Text and flash colours of one market window: a record of "COLORES.SET". Bytes without a meaning
/// keep their content.
struct ColorRecord {
  static constexpr std::size_t kSize = 80;

  base::Color ColorSubeTexto = 0, ColorBajaTexto = 0, ColorNormalTexto = 0;
  base::FixedText<30> SetFontName;
  std::int16_t SetFontSize = 0;
  base::Color ColorSubeFondo = 0, ColorBajaFondo = 0, ColorRepiteFondo = 0;
  base::Color ColorMovSube = 0, ColorMovBaja = 0, ColorMovRepite = 0;

  /// What record `number` (1 to 4, others as 1) holds until the user chooses.
  [[nodiscard]] static ColorRecord Default(int number);
  /// Falling text that can't be told from its back: nothing has been chosen here.
  [[nodiscard]] bool blank() const { return ColorBajaTexto == ColorBajaFondo; }
  /// The colours of another; the rest stays.
  void TakeColors(const ColorRecord& other);

  [[nodiscard]] static ColorRecord Decode(std::string_view record);
  [[nodiscard]] std::string Encode() const;

 private:
  std::array<char, kSize> bytes_{};
};

/// Record `number` of "COLORES.SET"; its default where it is missing or blank. `write_first` puts
/// the default into a file that is empty.
[[nodiscard]] ColorRecord ReadColorRecord(const base::ProgramDir& dir, int number,
                                          bool write_first = false);
/// Writes record `number`, from 1.
void WriteColorRecord(const base::ProgramDir& dir, int number, const ColorRecord& record);

}  // namespace views

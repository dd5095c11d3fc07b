#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "base/program_dir.h"
#include "platform/controls.h"
#include "platform/grid.h"
#include "platform/window.h"
#include "views/color_records.h"

namespace views {

/// The dialog that sets colours, font, lines and optional columns of one market window at a time,
/// with a preview. A colour of the upper labels holds at once and goes into "Colores.QUO"; the rest
/// is applied, and written, by "Aplicar Fuente". Sizes that aren't above 0 and up to 72 points are
/// left out, font names cut to their record; a file that can't be written stays as it was. What
/// the constructor takes outlives it.
class Colores : public platform::Window {
 public:
  /// By number of the chosen window: 1 shares and holdings, 2 indices and statistics, 3 futures,
  /// 4 currencies.
  struct Steps {
    std::function<std::vector<platform::Grid*>(int ventana)> Grids;  // that show its settings
    /// Headings of its optional columns, by flag from 0.
    std::function<std::span<const std::string_view>(int ventana)> Campos;
    std::function<void(int ventana)> ColoresOn;
    std::function<void()> OcultarConecta;
  };

  // Captions of the frames: around the options, the check boxes, the steps of the lines, the size,
  // and the last three labels.
  static constexpr std::string_view kVentanas = "Ventanas ", kCampos = "Campos a Visualizar",
                                    kEstilo = " Estilo del Grid", kLetra = "Tamaño de Letra",
                                    kMovimiento = "En movimiento de precios";

  Colores(platform::Platform& platform, const base::ProgramDir& dir, ConfigVentanas& config);

  Steps steps;

  platform::OptionButton Option1, Option2{Option1}, Option3{Option1}, Option4{Option1};
  platform::Grid G;                                // preview
  platform::Label Label2, Label3, Label4, Label5;  // back, rising, unchanged, falling
  platform::Label Label24, Label25, Label26;       // back of rising, falling, unchanged cells
  platform::Label Label27, Label29, Label30;       // text of them while prices move
  std::array<platform::CheckBox, 12> Check1;       // optional columns, by flag from 0
  platform::ListBox List1;                         // fonts
  platform::TextBox Text1;                         // font size in points
  platform::Button Command1;                       // applies
  platform::Button Command2, Command3;             // next, previous style of the lines

  void Option_Click();
  /// One of its own ten; another does nothing.
  void Label_Click(platform::Label& label);
  void List1_Click();
  void Text1_Enter();
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();

 protected:
  void OnLoad() override;
  void OnActivate() override;

 private:
  /// A label and the fields that its colour stands in.
  struct Muestra {
    platform::Label Colores::*label;
    std::string_view caption;
    base::Color ConfigVentana::*ventana;
    base::Color ColorRecord::*registro;
  };
  static const std::array<Muestra, 10> kMuestras;

  [[nodiscard]] int ventana() const;
  [[nodiscard]] ConfigVentana& config() { return config_[static_cast<std::size_t>(ventana())]; }
  [[nodiscard]] ColorRecord& registro() { return registros_[static_cast<std::size_t>(ventana())]; }
  [[nodiscard]] base::Color ColorOf(const Muestra& muestra);
  void Design();
  void Wire();
  void ReadFlags();
  void WriteFlags() const;
  void ShowCampos();
  /// Font and lines, which the preview alone holds until they are applied, and all colours.
  void ShowSettings();
  void ShowColors();
  void PaintPreview();
  void TakeLook();

  const base::ProgramDir& dir_;
  ConfigVentanas& config_;
  std::array<ColorRecord, 5> registros_;  // by number of the window
};

}  // namespace views

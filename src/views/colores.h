#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/program_dir.h"
#include "platform/controls.h"
#include "platform/grid.h"
#include "platform/window.h"
#include "views/color_records.h"

namespace views {

/// The dialog that sets colours, font, lines and optional columns of one market window at a time,
/// with a preview. A colour picked holds at once (and is written to "Colores.QUO"); the rest is
/// applied, and written, by "Aplicar Fuente". What the constructor takes outlives it.
class Colores : public platform::Window {
 public:
  /// By number of the chosen window: 1 shares and holdings, 2 indices and statistics, 3 futures,
  /// 4 currencies.
  struct Steps {
    std::function<std::vector<platform::Grid*>(int ventana)> Grids;  // that show its settings
    std::function<void(int ventana)> ColoresOn;
    std::function<void()> OcultarConecta;
  };

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
  const base::ProgramDir& dir_;
  ConfigVentanas& config_;
};

}  // namespace views

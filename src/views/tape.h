#pragma once

#include <cstdint>

#include "platform/grid.h"
#include "platform/window.h"

namespace views {

/// The tape: every trade of the session in order of arrival, from which tickets copy theirs. Rows
/// are without limit. Closing only hides it.
class Form2 : public platform::Window {
 public:
  enum Column { kFecha, kHora, kComprador, kVendedor, kInstrumento, kTitulos, kPrecio, kOrden };

  /// `FaseCierre` is above 0 while the program ends: only then it lets itself be closed.
  Form2(platform::Platform& platform, const std::int16_t& FaseCierre);

  platform::Grid List1;

  void Form_Resize();

 protected:
  void OnLoad() override;
  bool OnQueryUnload() override;
  void OnResize() override { Form_Resize(); }

 private:
  const std::int16_t& FaseCierre;
};

}  // namespace views

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/grid.h"
#include "platform/window.h"
#include "store/trade.h"

namespace views {

/// The tape: every trade of the session in order of arrival, from which tickets copy theirs. Rows
/// are without limit. Closing only hides it.
class Form2 : public platform::Window {
 public:
  enum Column { kFecha, kHora, kComprador, kVendedor, kInstrumento, kTitulos, kPrecio, kOrden };

  /// `FaseCierre` is above 0 while the program ends: only then it lets itself be closed.
  Form2(platform::Platform& platform, const std::int16_t& FaseCierre);

  platform::Grid List1;

  /// Adds the row of a trade, under the machine's date, and makes it the current one.
  /// `instrumento` is the text of its column.
  void Agregar(const store::Negocio& trade, std::string_view instrumento);
  /// Puts `row` at the top of the view, unless the reader has scrolled away from the end.
  void Seguir(int row);

  void Form_Resize();

 protected:
  void OnLoad() override;
  bool OnQueryUnload() override;
  void OnResize() override { Form_Resize(); }

 private:
  /// The date as "yymmdd".
  [[nodiscard]] const std::string& Fecha();

  const std::int16_t& FaseCierre;
  platform::LocalTime hoy_;
  std::string fecha_;  // that of `hoy_`
  platform::RowText fila_;
};

}  // namespace views

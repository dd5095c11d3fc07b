#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "charts/chart.h"
#include "charts/tick_files.h"
#include "store/code_scan.h"
#include "views/grid_view.h"

namespace charts {

/// The overview: the blue-chip index and two followers as lines (`Gr1`), the buyers' part of the
/// market (`Gr2`), the balances of buyers and sellers, and one instrument of the user's choice in
/// the grid, which doesn't flash. The charts begin with what the run has seen, the figures with
/// what is known of their codes. Closing only hides it. What the constructor takes outlives it.
class Hot : public views::GridView {
 public:
  Hot(const views::GridContext& context, const TickFiles& ticks);

  Chart Gr1, Gr2;
  platform::Label LSC, LSV;      // cash of buyers and of sellers
  platform::Label LSCT1, LSVT1;  // volume of the large trades of both
  platform::Label Label6;        // buyers' part in %; green above 50, red below
  platform::Label Label8;        // the same of the large trades
  platform::Label Label10;       // difference of the cash

  double SaldoComprador = 0, SaldoVendedor = 0;
  std::string HotCodigos;  // the user's code, one at a time, in bytes of Windows-1252
  std::int16_t NumHot = 0;

  /// After each update of an instrument.
  void ActuaHot(std::int16_t indice);
  /// Asks for the code of an instrument and adds its row, or takes it out where it is the one held.
  void Command4_Click() override;

 protected:
  void OnLoad() override;

 private:
  void ActuaFijo(std::size_t fijo, const store::Instrumento& record);
  void PintarParte(const store::Instrumento& record);
  void Trazar(Chart& chart, const store::Instrumento& record);
  void Agregar(std::string_view code);
  void Quitar();
  void PintarFila(const store::Instrumento& record);

  std::array<store::CodeKey, store::kCodeBlock> claves_;  // of the fixed codes
  store::CodeKey clave_ = store::kNoCode;                 // of the user's
};

}  // namespace charts

#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/program_dir.h"
#include "platform/controls.h"
#include "portfolios/records.h"

namespace portfolios {

/// The user's portfolios, the journal of their purchases and sales, and the positions that follow
/// from it. "Carteras.QRT" and "Operaciones.QRT" only grow: what is added is in the file and on the
/// disk before the call returns; where the disk refuses, the record stays in memory and goes out
/// with the next one. Files of any content give what can be read of them. Records, positions and
/// portfolios count from 1; a number out of range gives an empty one. `dir` and `selector` outlive
/// it.
class PortfolioStore {
 public:
  static constexpr int kMaxCarteras = 10, kMaxOperaciones = 500, kMaxPosiciones = 100;

  /// `selector` lists the portfolios.
  PortfolioStore(const base::ProgramDir& dir, platform::ComboBox& selector);

  [[nodiscard]] int NumCarteras() const { return static_cast<int>(carteras_.size()) - 1; }
  [[nodiscard]] const FichaCartera& Carteras(int i) const;
  [[nodiscard]] int NumOperaciones() const { return static_cast<int>(operaciones_.size()) - 1; }
  [[nodiscard]] const Operacion& Operaciones(int i) const;
  /// As of the last `RecalcularPosiciones`. `cartera` from 0 to kMaxCarteras.
  [[nodiscard]] int NumPosiciones(int cartera) const;
  [[nodiscard]] const Operacion& Posiciones(int cartera, int j) const;

  /// First portfolio with exactly that name, 25 bytes with its blanks; 0 when there is none.
  [[nodiscard]] int BuscarCartera(const base::FixedText<25>& name) const;
  /// How portfolio `i` reads in the selector: its name up to and with the first of two blanks, or
  /// "" where no two blanks follow one another. UTF-8.
  [[nodiscard]] std::string NombreCorto(int i) const;

  /// Reads both files, creating what is missing, fills the selector and reckons the positions. More
  /// records than the tables hold are left in the files.
  void CargarCarteras();
  /// Reckons all positions anew from the journal. An operation that finds no room, or whose sum
  /// doesn't fit, changes nothing.
  void RecalcularPosiciones();

  /// False where the table is full: nothing has changed then. Lists the selector anew.
  [[nodiscard]] bool AgregarCartera(const FichaCartera& record);
  /// False where the table is full. Positions stay as they were.
  [[nodiscard]] bool AgregarOperacion(const Operacion& record);

 private:
  void LlenarSelector();

  const base::ProgramDir& dir_;
  platform::ComboBox& selector_;
  std::vector<FichaCartera> carteras_;  // slot 0 is empty
  std::vector<Operacion> operaciones_;  // slot 0 is empty
  std::array<std::vector<Operacion>, kMaxCarteras + 1> posiciones_;
};

/// A position as a line of a list: shares, code and average price, with a tab between. UTF-8.
[[nodiscard]] std::string LineaPosicion(const Operacion& position);

}  // namespace portfolios

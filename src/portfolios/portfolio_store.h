#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "base/program_dir.h"
#include "platform/controls.h"
#include "portfolios/records.h"

namespace portfolios {

/// The records of a file in memory. They count from 1: slot 0 is empty.
template <typename Record>
struct Tabla {
  std::vector<Record> records = std::vector<Record>(1);
  int in_file = 0;       // so many of them, from the first one on, are in the file
  bool refused = false;  // the last one wasn't taken by the disk

  [[nodiscard]] int count() const { return static_cast<int>(records.size()) - 1; }
  /// The empty one for a number out of range.
  [[nodiscard]] const Record& operator[](int i) const {
    return records[i >= 1 && i <= count() ? static_cast<std::size_t>(i) : 0];
  }
};

/// The user's portfolios, the journal of their purchases and sales, and the positions that follow
/// from it. "Carteras.QRT" and "Operaciones.QRT" only grow: what is added is in the file and on the
/// disk before the call returns; where the disk refuses, the record stays in memory and goes out
/// with the next one, taken or not. What another terminal has added meanwhile is read first; two
/// that add in the same moment may still lose one of both. Files of any content give what can be
/// read of them. Records, positions and portfolios count from 1; a number out of range gives an
/// empty one. `dir` and `selector` outlive it.
class PortfolioStore {
 public:
  static constexpr int kMaxCarteras = 10, kMaxOperaciones = 500, kMaxPosiciones = 100;

  /// `selector` lists the portfolios.
  PortfolioStore(const base::ProgramDir& dir, platform::ComboBox& selector);

  [[nodiscard]] int NumCarteras() const { return carteras_.count(); }
  [[nodiscard]] const FichaCartera& Carteras(int i) const { return carteras_[i]; }
  [[nodiscard]] int NumOperaciones() const { return operaciones_.count(); }
  [[nodiscard]] const Operacion& Operaciones(int i) const { return operaciones_[i]; }
  /// As of the last `RecalcularPosiciones`. `cartera` from 0 to kMaxCarteras.
  [[nodiscard]] int NumPosiciones(int cartera) const;
  [[nodiscard]] const Operacion& Posiciones(int cartera, int j) const;

  /// Reads both files, creating what is missing, fills the selector and reckons the positions. More
  /// records than the tables hold are left in the files.
  void CargarCarteras();
  /// Reckons all positions anew from the journal. One past the most positions is left out, and
  /// a sum that doesn't fit leaves the quantity as it was.
  void RecalcularPosiciones();

  /// False where the table is full: `record` isn't taken then. Lists the selector anew.
  [[nodiscard]] bool AgregarCartera(const FichaCartera& record);
  /// False where the journal is full: `record` isn't taken then. Positions stay as they were.
  [[nodiscard]] bool AgregarOperacion(const Operacion& record);
  /// What was last added is in memory only: the disk has refused it.
  [[nodiscard]] bool CarteraSinGuardar() const { return carteras_.refused; }
  [[nodiscard]] bool OperacionSinGuardar() const { return operaciones_.refused; }

 private:
  void LlenarSelector();
  void Anotar(const Operacion& operacion);

  const base::ProgramDir& dir_;
  platform::ComboBox& selector_;
  Tabla<FichaCartera> carteras_;
  Tabla<Operacion> operaciones_;
  std::array<std::vector<Operacion>, kMaxCarteras + 1> posiciones_;
};

/// How a portfolio of that name reads in the selector: up to and with the first of two blanks, or
/// "" where no two blanks follow one another. UTF-8.
[[nodiscard]] std::string NombreCorto(const base::FixedText<25>& name);

}  // namespace portfolios

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "alarms/alarm_file.h"
#include "base/program_dir.h"
#include "store/code_scan.h"
#include "store/instrument.h"

namespace alarms {

/// The defined alarms, in slots 1 to NumAlarmas (at most 500), and their file "Al.Set". A file of
/// any content gives the alarms that are whole in it; one that is missing gives none and isn't
/// created. `dir` outlives it.
class AlarmTable {
 public:
  enum Tipo : std::int16_t { kPrecio = 1, kVolumen = 4 };
  enum Condicion : std::int16_t { kIgualOSuperior = 1, kIgualOInferior = 2 };

  explicit AlarmTable(const base::ProgramDir& dir);

  [[nodiscard]] int NumAlarmas() const { return static_cast<int>(alarmas_.size()) - 1; }
  /// `i` from 1 to NumAlarmas; other numbers give an empty alarm.
  [[nodiscard]] const Alarma& operator[](int i) const;

  void CargarAlarmas();
  /// Replaces the file. Where that fails the old one stays.
  void GuardarAlarmas() const;
  /// False where the table is full.
  [[nodiscard]] bool Agregar(const Alarma& alarm);
  /// Closes the gap over `i`, from 1 on. Past the last alarm it is the last one that goes.
  void Eliminar(int i);
  /// First alarm that `record` meets; 0 when it meets none. A volume alarm is met by its price too.
  /// Allocates nothing.
  [[nodiscard]] int Cumplida(const store::Instrumento& record) const;
  /// Takes alarm `i` out of play with a mark before its code.
  void Marcar(int i);

  /// The line of alarm `i` in a list.
  [[nodiscard]] std::string Linea(int i) const;

 private:
  static constexpr int kSlots = (kMaxAlarmas / store::kCodeBlock + 1) * store::kCodeBlock;

  void Indexar();

  const base::ProgramDir& dir_;
  std::vector<Alarma> alarmas_;                // slot 0 is empty
  std::array<store::CodeKey, kSlots> claves_;  // of each slot; no code where nothing can fire
};

}  // namespace alarms

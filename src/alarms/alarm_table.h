#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/program_dir.h"
#include "store/instrument.h"

namespace alarms {

/// The defined alarms, in slots 1 to NumAlarmas (at most 500), and their file "Al.Set": plain text
/// in Windows-1252, a value a line. A file of any content gives the alarms that are whole in it;
/// one that is missing gives none and isn't created. `dir` outlives it.
class AlarmTable {
 public:
  static constexpr int kMaxAlarmas = 500;
  enum Tipo : std::int16_t { kPrecio = 1, kVolumen = 4 };
  enum Condicion : std::int16_t { kIgualOSuperior = 1, kIgualOInferior = 2 };

  struct Alarma {
    store::Codigo AlarmaCodigo;    // upper case; "* " in front once it has fired
    float AlarmaValor = 0;         // threshold of price or volume
    float AlarmaValorInicial = 0;  // the same once more; saved, never tested
    std::int16_t AlarmaTipo = 0, AlarmaCondicion = 0;
    std::string AlarmaOrden;  // UTF-8; shown when it fires
  };

  explicit AlarmTable(const base::ProgramDir& dir);

  [[nodiscard]] int NumAlarmas() const { return NumAlarmas_; }
  /// `i` from 1 to NumAlarmas; other numbers give an empty alarm.
  [[nodiscard]] const Alarma& operator[](int i) const;

  void CargarAlarmas();
  void GuardarAlarmas() const;
  /// False where the table is full.
  bool Agregar(const Alarma& alarm);
  /// Closes the gap over `i`; the count falls even where nothing stands there, to 0 at least.
  void Eliminar(int i);
  /// First alarm that `record` meets; 0 when it meets none.
  [[nodiscard]] int Cumplida(const store::Instrumento& record) const;
  /// Takes alarm `i` out of play with a mark before its code.
  void Marcar(int i);

  /// The line of alarm `i` in a list.
  [[nodiscard]] std::string Linea(int i) const;

 private:
  const base::ProgramDir& dir_;
  int NumAlarmas_ = 0;
  std::vector<Alarma> alarmas_;  // slot 0 and one past the last are empty
};

}  // namespace alarms

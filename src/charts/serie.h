#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "charts/registro.h"
#include "charts/trazo.h"
#include "store/instrument.h"

namespace charts {

/// Numbers the days that the series of a chart have in common, from 0 in the order of their coming.
/// Beyond 4096 of them time stays on the last one.
class Calendario {
 public:
  /// The day of a record dated `fecha` in a series that has reached the day `actual`: not before
  /// it, and another one where the date is another. What is no date means the same day.
  [[nodiscard]] int Dia(float fecha, int actual);

 private:
  std::vector<float> fechas_;
};

/// The records of one code, their line and their volume by minute. Records are held back from line
/// and bars until they are shown. Until the market's clock is heard a record has no time, or an old
/// one without a date: it stands at the first time that comes, or no later than the first dated
/// one. When there are too many the oldest quarter goes at once.
class Serie {
 public:
  struct Entrada {
    Registro registro;
    float negociado;  // since the record before
    double x;
  };

  /// What its records have told of the time so far.
  enum class Reloj { kNada, kHora, kFecha };

  explicit Serie(const store::Codigo& code);

  [[nodiscard]] const store::Codigo& code() const { return code_; }
  [[nodiscard]] const std::vector<Entrada>& registros() const { return registros_; }
  [[nodiscard]] const Trazo& trazo() const { return trazo_; }  // point n is that of record n
  [[nodiscard]] const std::vector<Barra>& barras() const { return barras_; }
  [[nodiscard]] Reloj reloj() const { return reloj_; }

  /// A record whose close is no number is left out; its volume counts with the next.
  void Add(const Registro& record, Calendario& calendario);
  void Mostrar();

 private:
  [[nodiscard]] float Negociado(float volumen, bool otro_dia);
  void Recortar();
  void Situar(double desde, double hasta);
  void Sumar(const Entrada& entrada);

  store::Codigo code_;
  std::vector<Entrada> registros_;
  Trazo trazo_;
  std::vector<Barra> barras_;
  // Of the last record.
  double x_ = 0;
  int dia_ = 0;
  std::optional<float> volumen_;
  Reloj reloj_ = Reloj::kNada;
};

}  // namespace charts

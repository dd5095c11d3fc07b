#pragma once

namespace charts {

/// One record of a series.
struct Registro {
  float apertura = 0, cierre = 0, maximo = 0, minimo = 0;
  float volumen = 0;    // of the day so far
  double efectivo = 0;  // likewise
  float fecha = 0;      // YYYMMDD, years from 1900
  float hora = 0;       // HHMMSS
};

}  // namespace charts

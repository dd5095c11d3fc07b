#pragma once

#include <string>

#include "store/instrument.h"

namespace store {

/// The view that is told of an instrument.
enum class Clase { ninguna, Continuo, Indices, Estadisticas, Futuros, Divisas, Opciones };

/// Read from code and name each time, the first test that holds. `carga` is the load form: only
/// there a code that begins "CM" is a future.
[[nodiscard]] Clase ClaseDe(const Instrumento& record, bool carga);

/// Ultimo x 100 / Anterior - 100; nothing is divided for an Anterior of 0, which gives 0.
[[nodiscard]] double Variacion(const Instrumento& record);

}  // namespace store

#include "store/market_class.h"

namespace store {

Clase ClaseDe(const Instrumento& record, bool carga) {
  const std::string_view code = record.Codigo.bytes();
  const bool statistic_name = record.Nombre.bytes().starts_with("ST");
  if (code.substr(3, 2) == "  " || code[3] == '.') return Clase::Continuo;
  if (code.starts_with("I ")) return statistic_name ? Clase::Estadisticas : Clase::Indices;
  if (code.starts_with("ST") || statistic_name) return Clase::Estadisticas;
  if (code.starts_with("MF") || code.starts_with("PD")) return Clase::Futuros;
  if (carga && code.starts_with("CM")) return Clase::Futuros;
  if (code.starts_with("DV")) return Clase::Divisas;
  if (code.starts_with(".C") || code.starts_with(".P")) return Clase::Opciones;
  return Clase::ninguna;
}

double Variacion(const Instrumento& record) {
  if (record.Anterior == 0) return 0;
  return static_cast<double>(record.Ultimo) * 100 / static_cast<double>(record.Anterior) - 100;
}

}  // namespace store

#include "portfolios/records.h"

#include <algorithm>
#include <cassert>

#include "base/bytes.h"

namespace portfolios {

FichaCartera FichaCartera::Decode(std::string_view record) {
  assert(record.size() == kSize);
  FichaCartera ficha;
  ficha.Cuenta.assign(base::TextField(record, 0, 25));
  ficha.Agencia.assign(base::TextField(record, 25, 20));
  ficha.Nombre.assign(base::TextField(record, 45, 25));
  std::ranges::copy(base::TextField(record, 70, ficha.reservado.size()), ficha.reservado.begin());
  [[maybe_unused]] const bool whole = base::ReadField(record, 88, ficha.ComisionOperacion) &&
                                      base::ReadField(record, 92, ficha.ComisionMinima);
  assert(whole);
  return ficha;
}

std::string FichaCartera::Encode() const {
  std::string record;
  record.reserve(kSize);
  record.append(Cuenta.bytes()).append(Agencia.bytes()).append(Nombre.bytes());
  record.append(reservado.data(), reservado.size());
  base::AppendField(record, ComisionOperacion);
  base::AppendField(record, ComisionMinima);
  return record;
}

Operacion Operacion::Decode(std::string_view record) {
  assert(record.size() == kSize);
  Operacion operacion;
  operacion.Codigo.assign(base::TextField(record, 0, 7));
  operacion.Nombre.assign(base::TextField(record, 7, 25));
  [[maybe_unused]] const bool whole = base::ReadField(record, 32, operacion.Titulos) &&
                                      base::ReadField(record, 36, operacion.Precio) &&
                                      base::ReadField(record, 40, operacion.Fecha) &&
                                      base::ReadField(record, 44, operacion.Hora) &&
                                      base::ReadField(record, 48, operacion.CarteraId) &&
                                      base::ReadField(record, 50, operacion.Sentido);
  assert(whole);
  return operacion;
}

std::string Operacion::Encode() const {
  std::string record;
  record.reserve(kSize);
  record.append(Codigo.bytes()).append(Nombre.bytes());
  base::AppendField(record, Titulos);
  base::AppendField(record, Precio);
  base::AppendField(record, Fecha);
  base::AppendField(record, Hora);
  base::AppendField(record, CarteraId);
  base::AppendField(record, Sentido);
  return record;
}

}  // namespace portfolios

#pragma once

#include <array>
#include <cstdint>

#include "base/fixed_text.h"

namespace store {

using Codigo = base::FixedText<7>;

/// Market state of one traded thing. Numbers keep the width that they have on the wire.
struct Instrumento {
  store::Codigo Codigo;          // key; blank padded
  float Anterior = 0;            // previous close
  float Maximo = 0, Minimo = 0;  // of the day
  float Ultimo = 0;              // last price
  float Volumen = 0;             // of the day
  float Apertura = 0;            // opening price
  double Efectivo = 0;           // cash traded in the day
  float Fecha = 0;               // YYYMMDD, years from 1900: 26 April 2000 is 1000426
  float Hora = 0;                // HHMMSS
  base::FixedText<20> Nombre;    // display name
  float Medio = 0;               // derived: average traded price
  double Saldo = 0;              // derived: money balance of the day against the average
};

/// The five best levels of both sides of one order book, best level first.
struct LibroOrdenes {
  store::Codigo Codigo;
  std::array<float, 5> VolCompra{}, PrecioCompra{}, VolVenta{}, PrecioVenta{};
  float LibroExtra = 0;  // kept as it came
};

}  // namespace store

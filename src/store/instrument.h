#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "base/fixed_text.h"

namespace store {

using Codigo = base::FixedText<7>;

/// All seven bytes of a code in one number: tells codes apart in one comparison, blanks included.
[[nodiscard]] inline std::uint64_t WholeCode(const Codigo& code) {
  // The middle byte stands in both: two whole words are read faster than seven bytes.
  std::uint32_t first = 0, last = 0;
  std::memcpy(&first, code.bytes().data(), sizeof first);
  std::memcpy(&last, code.bytes().data() + 3, sizeof last);
  return std::uint64_t{last} << 32U | first;
}

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

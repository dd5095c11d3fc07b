#pragma once

#include <cstdint>

#include "store/instrument.h"

namespace store {

/// One trade of the market as the feed brings it.
struct Negocio {
  char Lado = ' ';             // "C" or "V": who took the other's price; other bytes are possible
  store::Codigo Codigo{};      // five characters and two blanks
  float Hora = 0;              // HHMMSS
  std::int16_t Titulos = 0;    // shares traded
  std::int16_t Comprador = 0;  // buying member
  std::int16_t Vendedor = 0;   // selling member
  float Precio = 0;
};

}  // namespace store

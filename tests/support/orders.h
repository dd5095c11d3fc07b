#pragma once

#include <cstdint>
#include <string_view>

#include "portfolios/records.h"

namespace support {

/// An operation of a portfolio's journal.
[[nodiscard]] inline portfolios::Operacion Order(std::string_view code, int shares, float price,
                                                 int way = portfolios::Operacion::kCompra,
                                                 int portfolio = 1) {
  portfolios::Operacion record;
  record.Codigo.assign(code);
  record.Titulos = shares;
  record.Precio = price;
  record.CarteraId = static_cast<std::int16_t>(portfolio);
  record.Sentido = static_cast<std::int16_t>(way);
  return record;
}

}  // namespace support

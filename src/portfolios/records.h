#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/fixed_text.h"
#include "store/instrument.h"

// The records of the portfolio files. Decode takes exactly kSize bytes (a bug otherwise), of any
// content; Encode gives back what Decode took.
namespace portfolios {

/// A portfolio: a record of "Carteras.QRT".
struct FichaCartera {
  static constexpr std::size_t kSize = 96;

  base::FixedText<25> Cuenta;   // account number
  base::FixedText<20> Agencia;  // agency or broker
  base::FixedText<25> Nombre;   // the name by which every window finds it
  std::array<char, 18> reservado{};
  float ComisionOperacion = 0, ComisionMinima = 0;  // kept, never reckoned with

  [[nodiscard]] static FichaCartera Decode(std::string_view record);
  [[nodiscard]] std::string Encode() const;
};

/// A purchase or sale: a record of "Operaciones.QRT". A position is one as well: the operation that
/// opened it, with `Titulos` the net quantity (below 0 when more was sold) and `Precio` the average
/// price paid.
struct Operacion {
  static constexpr std::size_t kSize = 52;
  enum : std::int16_t { kCompra = 1, kVenta = 2 };

  store::Codigo Codigo;
  base::FixedText<25> Nombre;  // of the instrument, at that time
  std::int32_t Titulos = 0;    // shares
  float Precio = 0;            // a share
  float Fecha = 0;             // number of the digits "yymmdd": 26 April 2000 is 426
  float Hora = 0;              // number of the digits "hhmmss"
  std::int16_t CarteraId = 0;  // number of the portfolio, from 1
  std::int16_t Sentido = 0;    // kCompra or kVenta

  /// Whether it is a purchase or a sale; a file may hold neither.
  [[nodiscard]] bool conocida() const { return Sentido == kCompra || Sentido == kVenta; }

  [[nodiscard]] static Operacion Decode(std::string_view record);
  [[nodiscard]] std::string Encode() const;
};

}  // namespace portfolios

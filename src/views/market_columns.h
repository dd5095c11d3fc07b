#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "views/column_layout.h"

// What the tables of the market views are put together from.
namespace views {

inline constexpr int kNameWidth = 2550;  // twips

inline constexpr std::array kPriceColumns{
    Columna{"Anterior", Campo::Anterior, 1110}, Columna{"Apertura", Campo::Apertura, 1110},
    Columna{"%D", Campo::Variacion, 900},       Columna{"Ultimo", Campo::Ultimo, 1110},
    Columna{"Maximo", Campo::Maximo, 1110},     Columna{"Minimo", Campo::Minimo, 1110},
};
inline constexpr Columna kVolumen{"Volumen", Campo::Volumen, 1335};
inline constexpr Columna kEfectivo{"Efectivo", Campo::Efectivo, 1560};
inline constexpr Columna kPonderado{"Ponderado", Campo::Medio, 1290};
inline constexpr Columna kSaldos{"Saldos", Campo::Saldo, 1560};
inline constexpr Columna kHora{"Hora", Campo::Hora, 1110};
inline constexpr Columna kFecha{"Fecha", Campo::Fecha, 1335};
inline constexpr Columna kPesetas{"Pesetas", Campo::Pesetas, 1110};

/// `first`, then `more`.
template <std::size_t N, typename... More>
[[nodiscard]] constexpr auto Followed(const std::array<Columna, N>& first, const More&... more) {
  std::array<Columna, N + sizeof...(More)> all{};
  for (std::size_t k = 0; k < N; ++k) all[k] = first[k];
  std::size_t at = N;
  ((all[at++] = more), ...);
  return all;
}

/// The headings of the first twelve: one a flag.
template <std::size_t N>
[[nodiscard]] constexpr std::array<std::string_view, 12> ByFlag(
    const std::array<Columna, N>& columns) {
  static_assert(N >= 12);
  std::array<std::string_view, 12> headings;
  for (std::size_t k = 0; k < headings.size(); ++k) headings[k] = columns[k].heading;
  return headings;
}

inline constexpr std::array kClosingHora{kHora.heading};

/// All twelve by flag, then "Hora" once more.
template <std::size_t N>
[[nodiscard]] constexpr ColumnTable FlaggedTable(const std::array<Columna, N>& columns) {
  return {.name_width = kNameWidth,
          .design = columns,
          .by_flag = ByFlag(columns),
          .closing = kClosingHora};
}

/// Headings of a view that knows the first seven flags only.
inline constexpr std::array<std::string_view, 12> kSevenFlags{
    "Anterior", "Apertura", "%D", "Ultimo", "Maximo", "Minimo", "Volumen"};

}  // namespace views

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/instrument.h"

namespace alarms {

struct Alarma {
  store::Codigo AlarmaCodigo;    // upper case; "* " in front once it has fired
  float AlarmaValor = 0;         // threshold of price or volume
  float AlarmaValorInicial = 0;  // the same once more; saved, never tested
  std::int16_t AlarmaTipo = 0, AlarmaCondicion = 0;
  std::string AlarmaOrden;  // UTF-8; shown when it fires
};

inline constexpr int kMaxAlarmas = 500;
inline constexpr std::size_t kMaxOrden = 2000;  // characters of an order

/// The text of "Al.Set": the number of alarms, then for each its code, order, threshold, threshold
/// once more, condition and kind; a value a line, CR LF at its end, texts in Windows-1252 between
/// double quotes. A quote inside becomes an apostrophe, a byte below 32 a blank.
[[nodiscard]] std::string EncodeAlarms(std::span<const Alarma> alarms);

/// The alarms that are whole in a text of any bytes, at most kMaxAlarmas, up to the first value
/// that isn't there or doesn't fit. Any line ends, empty lines and blanks around a value are fine,
/// so are texts without quotes. Orders are cut at kMaxOrden.
[[nodiscard]] std::vector<Alarma> DecodeAlarms(std::string_view text);

}  // namespace alarms

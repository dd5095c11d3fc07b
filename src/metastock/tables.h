#pragma once

#include <cstdint>
#include <string_view>

#include "base/fixed_text.h"
#include "store/instrument.h"

// What the tables of both stores hold. Dates are YYMMDD, from 2000 on 1YYMMDD (the same number as
// the feed's); times HHMMSS; both as floats.
namespace metastock {

/// What the update routines are given.
struct Bar {
  float Date = 0, Time = 0, Open = 0, High = 0, Low = 0, Close = 0, Volume = 0;
};

/// A bar of a daily file.
struct DailyBar {
  float Date = 0, High = 0, Low = 0, Close = 0, Volume = 0;
};

/// The bar of an intraday entry that is being made.
struct BarState {
  float Date = 0, Time = 0, High = 0, Low = 0, Close = 0;
  float VolumeBase = 0;   // from quotes: of the day as the bar began; from history: of a row
  std::int16_t Slot = 0;  // of the day, in periods
  float Open = 0, Aux = 0;
  float VolumeNow = 0;  // from quotes: of the day; from history: of the bar
};

/// An entry of the daily directory.
struct MasterEntry {
  std::uint8_t FileNumber = 0;  // nn of Fnn.dat
  base::FixedText<16> Name;
  float FirstDate = 0, LastDate = 0;  // of the bars read at load; not those of the directory
  char TimeFrame = ' ';
  base::FixedText<7> Symbol;
};

/// An entry of the intraday directory.
struct EMasterEntry {
  std::int16_t FileNumber = 0;
  base::FixedText<8> Symbol;
  base::FixedText<16> Name;
  char TimeFrame = ' ';
  std::int16_t Period = 0;    // minutes of a bar
  float LastDate = 0;         // of the last bar at load
  float Inicio = 0, Fin = 0;  // the directory's bytes as they are: may be any float, or none
};

/// The code of an instrument that a symbol stands for: what stands before a NUL, seven characters.
[[nodiscard]] inline store::Codigo CodeOf(std::string_view symbol) {
  return store::Codigo(symbol.substr(0, symbol.find('\0')));
}

}  // namespace metastock

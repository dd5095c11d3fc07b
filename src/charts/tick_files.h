#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "base/program_dir.h"
#include "store/instrument_store.h"

namespace charts {

/// One record of a tick file.
struct Tick {
  float Precio = 0;
  float Volumen = 0;  // of the day so far
  float Hora = 0;     // HHMMSS
  float Fecha = 0;    // YYYMMDD, years from 1900
};

/// The name of an instrument's tick file: its code with its blanks, then ".TCK". Bytes other than
/// letters, digits, blank and . - _ & + are written as %XX, so that it is always the plain name of
/// a file, whatever the server has sent as a code, and no two codes share one.
[[nodiscard]] std::string RutaTick(const store::Codigo& code);

/// The tick files of the run, one an instrument in the directory "Ticks": 16-byte records, appended
/// with each change of price or volume. Opened and closed for each tick; where that fails the tick
/// is lost. The directory is looked up at the first use, and must have been made by then. `dir` and
/// `store` outlive it.
class TickFiles {
 public:
  /// A file may have any length, but no more of it than its end is read.
  static constexpr std::int64_t kMaxLeidos = 262144;

  TickFiles(const base::ProgramDir& dir, const store::InstrumentStore& store)
      : dir_(dir), store_(store) {}

  /// Appends the instrument's last price under the market's time, unless the file ends with the
  /// same price and volume. Prices at or below half of the day's lowest aren't believed.
  void TickAppend(std::int16_t slot);

  /// Visits the believable ones of the last kMaxLeidos records, the oldest first: a price at or
  /// below half of the file's first price is a bad tick. (What is left out in front is asked for
  /// that first price as far as another kMaxLeidos records.) Creates a missing file empty. Gives
  /// the number of whole records that the file has.
  std::int64_t Leer(const store::Codigo& code, const std::function<void(const Tick&)>& visit) const;

 private:
  [[nodiscard]] const std::string& RutaDe(const store::Codigo& code) const;

  const base::ProgramDir& dir_;
  const store::InstrumentStore& store_;
  mutable std::string ruta_;         // of the file in hand, kept for its room
  mutable std::size_t prefijo_ = 0;  // how much of it is the directory; 0 not looked up yet
};

}  // namespace charts

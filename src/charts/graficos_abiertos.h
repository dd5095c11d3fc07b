#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "charts/graficos.h"
#include "platform/open_windows.h"

namespace charts {

/// Opens chart windows, owns them and carries quotes to those of their code (all seven characters
/// alike, blanks included), first opened first. What it is given outlives it.
class GraficosAbiertos {
 public:
  GraficosAbiertos(platform::Platform& platform, const store::InstrumentStore& store,
                   const TickFiles& ticks, const std::int16_t& FaseCierre);

  /// The chart of an instrument. A number that isn't its slot opens none.
  void Abrir(std::int16_t slot);
  /// The chart of a code that the user types, whether it is known or not. False when that has two
  /// characters or fewer.
  bool Pedir();
  /// After a quote: a record, and a new caption, for each chart of the instrument.
  void GraficosVivo(std::int16_t slot);

  /// Codes that have had a chart, in the order of their first.
  std::vector<store::Codigo> ChartCodes;
  /// For each of them the place that its last chart took in the list of windows, from 0.
  std::vector<std::int16_t> ChartWindowIndex;

  charts::Medias Medias;

  [[nodiscard]] std::size_t size() const { return abiertos_.size(); }
  [[nodiscard]] Graficos& at(std::size_t index) const { return abiertos_.at(index); }

 private:
  void Mostrar(const store::Codigo& code, std::string_view caption);

  platform::Platform& platform_;
  const store::InstrumentStore& store_;
  const TickFiles& ticks_;
  platform::OpenWindows<Graficos, std::uint64_t> abiertos_;  // by WholeCode
};

}  // namespace charts

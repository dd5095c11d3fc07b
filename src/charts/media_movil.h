#pragma once

#include <cstddef>
#include <vector>

#include "charts/trazo.h"

namespace charts {

/// The average of the last so many points of a line, as a line of its own that begins where there
/// are enough of them. One step costs the same whatever the period, and an outlier that has left
/// the window leaves no trace in the sums.
class MediaMovil {
 public:
  /// `periodos` from 1.
  explicit MediaMovil(std::size_t periodos);

  [[nodiscard]] const Trazo& trazo() const { return trazo_; }

  /// Takes in what the line has got since the last time, or all of it where it isn't the same any
  /// more. It is always called with one line.
  void Seguir(const Linea& linea);

 private:
  void Add(const std::vector<Punto>& puntos, std::size_t index);

  std::size_t periodos_;
  Trazo trazo_;
  std::size_t vistos_ = 0;   // points taken in
  unsigned generation_ = 0;  // of the line
  // Points are summed in stretches of the period. A window is the end of one stretch and the
  // beginning of the next, so that nothing is ever subtracted.
  std::vector<double> colas_;  // sums of the last stretch from each of its points to its end
  double cabeza_ = 0;          // sum of the present one so far
};

}  // namespace charts

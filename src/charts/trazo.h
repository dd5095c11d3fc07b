#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "charts/chart.h"

namespace charts {

/// Lowest and highest of some prices; of none to begin with.
struct Rango {
  double minimo = std::numeric_limits<double>::infinity();
  double maximo = -std::numeric_limits<double>::infinity();

  void Unir(const Rango& other) {
    minimo = std::min(minimo, other.minimo);
    maximo = std::max(maximo, other.maximo);
  }
  [[nodiscard]] bool vacio() const { return minimo > maximo; }
};

/// A line and what it takes to know the extremes of any part of it without walking it. Points are
/// added in order of x and have finite numbers.
class Trazo {
 public:
  [[nodiscard]] const Linea& linea() const { return linea_; }
  [[nodiscard]] std::span<const Punto> puntos() const { return linea_.puntos; }
  void set_nombre(std::string nombre) { linea_.nombre = std::move(nombre); }

  void Add(const Punto& punto);
  /// The first `n` go, or all.
  void Quitar(std::size_t n);
  /// What lies before `desde` or after `hasta` moves there.
  void Situar(double desde, double hasta);

  /// Of what is drawn from `desde` to `hasta`: the points there, and those that the line comes from
  /// or goes to.
  [[nodiscard]] Rango Entre(double desde, double hasta) const;

 private:
  void Medir(std::size_t index);

  Linea linea_;
  std::vector<Rango> bloques_;  // of so many points each, the last one of fewer
};

}  // namespace charts

#include "charts/trazo.h"

#include <algorithm>

namespace charts {
namespace {

constexpr std::size_t kBloque = 128;

}  // namespace

void Trazo::Add(const Punto& punto) {
  linea_.puntos.push_back(punto);
  Medir(linea_.puntos.size() - 1);
}

void Trazo::Medir(std::size_t index) {
  if (index % kBloque == 0) bloques_.emplace_back();
  const double y = linea_.puntos[index].y;
  bloques_.back().Unir({y, y});
}

void Trazo::Quitar(std::size_t n) {
  if (n == 0) return;
  auto& puntos = linea_.puntos;
  puntos.erase(puntos.begin(),
               puntos.begin() + static_cast<std::ptrdiff_t>(std::min(n, puntos.size())));
  bloques_.clear();
  for (std::size_t i = 0; i < puntos.size(); ++i) Medir(i);
  ++linea_.generation;
}

void Trazo::Situar(double desde, double hasta) {
  if (linea_.puntos.empty()) return;
  for (Punto& punto : linea_.puntos) punto.x = std::clamp(punto.x, desde, hasta);
  ++linea_.generation;
}

Rango Trazo::Entre(double desde, double hasta) const {
  const auto& puntos = linea_.puntos;
  const auto first = std::ranges::lower_bound(puntos, desde, {}, &Punto::x);
  const auto last = std::ranges::upper_bound(puntos, hasta, {}, &Punto::x);
  auto i = static_cast<std::size_t>(first - puntos.begin());
  auto end = static_cast<std::size_t>(last - puntos.begin());
  if (i > 0 && i < puntos.size()) --i;
  if (end > 0 && end < puntos.size()) ++end;
  Rango rango;
  while (i < end) {
    const bool whole = i % kBloque == 0 && end - i >= kBloque;
    rango.Unir(whole ? bloques_[i / kBloque] : Rango{puntos[i].y, puntos[i].y});
    i += whole ? kBloque : 1;
  }
  return rango;
}

}  // namespace charts

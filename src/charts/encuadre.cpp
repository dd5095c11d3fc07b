#include "charts/encuadre.h"

#include <algorithm>
#include <cmath>

namespace charts {
namespace {

constexpr double kMinimo = 10;

/// A stretch of that width within `todo`, as near to `desde` as it can be.
Tramo Dentro(const Tramo& todo, double desde, double ancho) {
  if (!(ancho < todo.ancho())) return todo;
  const double begin = std::clamp(desde, todo.desde, todo.hasta - ancho);
  return {begin, begin + ancho};
}

}  // namespace

Tramo Encuadre::Visto(const Tramo& todo) const {
  return parte_ ? Dentro(todo, parte_->desde, parte_->ancho()) : todo;
}

bool Encuadre::Acercar(const Tramo& todo, double x, double factor) {
  if (!std::isfinite(x) || !std::isfinite(factor) || factor <= 0) return false;
  const Tramo visto = Visto(todo);
  const double ancho = std::max(visto.ancho() * factor, kMinimo);
  if (ancho >= todo.ancho()) return VerTodo();
  if (ancho == visto.ancho()) return false;
  parte_ = Dentro(todo, x - (x - visto.desde) * (ancho / visto.ancho()), ancho);
  return true;
}

bool Encuadre::Desplazar(const Tramo& todo, double parte) {
  if (ve_todo() || !std::isfinite(parte)) return false;
  const Tramo visto = Visto(todo);
  parte_ = Dentro(todo, visto.desde + parte * visto.ancho(), visto.ancho());
  return parte_->desde != visto.desde;
}

bool Encuadre::VerTodo() {
  if (ve_todo()) return false;
  parte_.reset();
  return true;
}

}  // namespace charts

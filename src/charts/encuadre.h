#pragma once

#include <optional>

namespace charts {

/// A stretch of time.
struct Tramo {
  double desde = 0, hasta = 0;
  [[nodiscard]] double ancho() const { return hasta - desde; }
};

/// Which part of the time that there is (`todo`, which may change from call to call) is seen: all
/// of it, or a stretch of 10 seconds at least that stays where it is. Moves tell whether they have
/// changed anything; numbers that make no sense change nothing.
class Encuadre {
 public:
  [[nodiscard]] bool ve_todo() const { return !parte_; }
  [[nodiscard]] Tramo Visto(const Tramo& todo) const;
  bool Acercar(const Tramo& todo, double x, double factor);
  bool Desplazar(const Tramo& todo, double parte);
  bool VerTodo();

 private:
  std::optional<Tramo> parte_;
};

}  // namespace charts

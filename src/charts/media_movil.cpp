#include "charts/media_movil.h"

namespace charts {

MediaMovil::MediaMovil(std::size_t periodos) : periodos_(periodos) {
  trazo_.set_nombre("Media " + std::to_string(periodos));
}

void MediaMovil::Seguir(const Linea& linea) {
  if (generation_ != linea.generation) {
    generation_ = linea.generation;
    vistos_ = 0;
    trazo_.Quitar(trazo_.puntos().size());
  }
  for (; vistos_ < linea.puntos.size(); ++vistos_) Add(linea.puntos, vistos_);
}

void MediaMovil::Add(const std::vector<Punto>& puntos, std::size_t index) {
  const std::size_t place = index % periodos_;
  if (place == 0) {
    cabeza_ = 0;
    colas_.assign(periodos_ + 1, 0);
    if (index > 0) {
      for (std::size_t i = periodos_; i-- > 0;)
        colas_[i] = colas_[i + 1] + puntos[index - periodos_ + i].y;
    }
  }
  cabeza_ += puntos[index].y;
  if (index + 1 < periodos_) return;
  trazo_.Add({puntos[index].x, (colas_[place + 1] + cabeza_) / static_cast<double>(periodos_)});
}

}  // namespace charts

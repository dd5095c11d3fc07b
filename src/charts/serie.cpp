#include "charts/serie.h"

#include <algorithm>
#include <cmath>

namespace charts {
namespace {

constexpr std::size_t kMaxRegistros = 262144, kMaxDias = 4096;
constexpr double kMinuto = 60, kDia = 86400;

double Minuto(double x) { return std::floor(x / kMinuto) * kMinuto; }

/// Seconds since midnight of HHMMSS; 0 of what is no time.
int Segundos(float hora) {
  if (!(hora > 0)) return 0;
  const int hms = static_cast<int>(std::min(hora, 235959.0F));
  return hms / 10000 * 3600 + std::min(hms / 100 % 100, 59) * 60 + std::min(hms % 100, 59);
}

bool EsFecha(float fecha) { return fecha > 0 && std::isfinite(fecha); }

}  // namespace

int Calendario::Dia(float fecha, int actual) {
  if (!EsFecha(fecha)) return actual;
  const auto found = std::find(fechas_.begin() + actual, fechas_.end(), fecha);
  const auto dia = static_cast<int>(found - fechas_.begin());
  if (found != fechas_.end()) return dia;
  if (fechas_.size() == kMaxDias) return actual;
  fechas_.push_back(fecha);
  return dia;
}

Serie::Serie(const store::Codigo& code) : code_(code) { trazo_.set_nombre(code.trimmed_utf8()); }

void Serie::Add(const Registro& record, Calendario& calendario) {
  if (!std::isfinite(record.cierre)) return;
  if (registros_.size() == kMaxRegistros) Recortar();
  const int dia = calendario.Dia(record.fecha, dia_);
  const int segundos = Segundos(record.hora);
  const double x = dia * kDia + segundos;
  const Reloj reloj = segundos == 0           ? Reloj::kNada
                      : EsFecha(record.fecha) ? Reloj::kFecha
                                              : Reloj::kHora;
  if (reloj > reloj_) {
    Situar(reloj_ == Reloj::kNada ? x : 0, x);
    reloj_ = reloj;
  }
  x_ = std::max(x_, x);
  registros_.push_back({record, Negociado(record.volumen, dia != dia_), x_});
  dia_ = dia;
}

float Serie::Negociado(float volumen, bool otro_dia) {
  if (otro_dia && volumen_) volumen_ = 0.0F;
  if (!(volumen >= 0) || !std::isfinite(volumen)) return 0;
  const float antes = volumen_.value_or(volumen);
  volumen_ = volumen;
  return std::max(volumen - antes, 0.0F);
}

void Serie::Recortar() {
  constexpr std::size_t kFuera = kMaxRegistros / 4;
  registros_.erase(registros_.begin(), registros_.begin() + kFuera);
  trazo_.Quitar(kFuera);
  // The minute in which the rest begins keeps what was traded before.
  const double desde = Minuto(registros_.front().x);
  std::erase_if(barras_, [desde](const Barra& barra) { return barra.x < desde; });
}

void Serie::Situar(double desde, double hasta) {
  x_ = std::clamp(x_, desde, hasta);
  for (Entrada& entrada : registros_) entrada.x = std::clamp(entrada.x, desde, hasta);
  trazo_.Situar(desde, hasta);
  barras_.clear();
  for (std::size_t i = 0; i < trazo_.puntos().size(); ++i) Sumar(registros_[i]);
}

void Serie::Sumar(const Entrada& entrada) {
  if (entrada.negociado <= 0) return;
  const double x = Minuto(entrada.x);
  if (barras_.empty() || barras_.back().x != x) barras_.push_back({x, 0});
  barras_.back().volumen += static_cast<double>(entrada.negociado);
}

void Serie::Mostrar() {
  for (std::size_t i = trazo_.puntos().size(); i < registros_.size(); ++i) {
    const Entrada& entrada = registros_[i];
    trazo_.Add({entrada.x, static_cast<double>(entrada.registro.cierre)});
    Sumar(entrada);
  }
}

}  // namespace charts

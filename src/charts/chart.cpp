#include "charts/chart.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/masks.h"
#include "charts/encuadre.h"
#include "charts/media_movil.h"
#include "charts/serie.h"

namespace charts {
namespace {

constexpr double kMinuto = 60, kDia = 86400;

constexpr std::array<base::Mask, Chart::kMaxDecimals + 1> kPrecios = {
    base::Mask("###,##0"),       base::Mask("###,##0.0"),    base::Mask("###,##0.00"),
    base::Mask("###,##0.000"),   base::Mask("###,##0.0000"), base::Mask("###,##0.00000"),
    base::Mask("###,##0.000000")};
constexpr std::array<double, kPrecios.size()> kPasos = {1, 1e-1, 1e-2, 1e-3, 1e-4, 1e-5, 1e-6};

/// Room for the lines and a little around them. Prices that hardly differ aren't blown up: ten
/// steps of the last decimal are the least.
void Ajustar(Vista& vista, const Rango& precios, double paso) {
  if (precios.vacio()) return;
  const double centro = precios.minimo / 2 + precios.maximo / 2;
  const double medio =
      std::max({(precios.maximo - precios.minimo) * 0.55, 5 * paso, std::abs(centro) * 1e-6});
  vista.minimo = centro - medio;
  vista.maximo = centro + medio;
}

double MasAlta(const std::vector<Barra>& barras, const Tramo& visto) {
  double volumen = 0;
  const auto first = std::ranges::upper_bound(barras, visto.desde - kMinuto, {}, &Barra::x);
  for (auto barra = first; barra != barras.end() && barra->x < visto.hasta; ++barra)
    volumen = std::max(volumen, barra->volumen);
  return volumen;
}

/// The last point at or before x, which isn't before the first.
std::size_t HastaX(std::span<const Punto> puntos, double x) {
  const auto after = std::ranges::upper_bound(puntos, x, {}, &Punto::x);
  return static_cast<std::size_t>(after - puntos.begin()) - 1;
}

/// Where several points share a time, the last of them.
std::size_t Cercano(std::span<const Punto> puntos, double x) {
  const std::size_t antes = HastaX(puntos, std::max(x, puntos.front().x));
  if (antes + 1 == puntos.size()) return antes;
  const double despues = puntos[antes + 1].x;
  return std::abs(despues - x) < std::abs(x - puntos[antes].x) ? HastaX(puntos, despues) : antes;
}

}  // namespace

struct Chart::Data {
  std::vector<Serie> series;
  std::vector<MediaMovil> medias;
  Calendario calendario;
  Encuadre encuadre;
  std::vector<Barra> sin_barras;

  [[nodiscard]] Serie* Find(const store::Codigo& code) {
    const auto found = std::ranges::find(series, code, &Serie::code);
    return found == series.end() ? nullptr : &*found;
  }
  [[nodiscard]] const Serie* Numero(int serie) const {
    return serie < 1 || static_cast<std::size_t>(serie) > series.size()
               ? nullptr
               : &series[static_cast<std::size_t>(serie) - 1];
  }
  [[nodiscard]] const Trazo& trazo(std::size_t index) const {
    return index < series.size() ? series[index].trazo() : medias[index - series.size()].trazo();
  }
  /// The points of the first series.
  [[nodiscard]] std::span<const Punto> puntos() const {
    return series.empty() ? std::span<const Punto>() : series.front().trazo().puntos();
  }
  [[nodiscard]] Senalado Lugar(std::size_t index) const {
    const Serie::Entrada& entrada = series.front().registros()[index];
    return {puntos()[index], entrada.registro, static_cast<double>(entrada.negociado)};
  }
  [[nodiscard]] std::optional<Tramo> Todo() const;
};

/// In whole minutes: the first and the last bar have room, and the scale stands still in between.
/// A series that hasn't heard the clock as well as others have isn't in its place yet.
std::optional<Tramo> Chart::Data::Todo() const {
  Rango rango;
  auto reloj = Serie::Reloj::kNada;
  for (const Serie& serie : series) {
    const auto puntos = serie.trazo().puntos();
    if (puntos.empty() || serie.reloj() < reloj) continue;
    if (serie.reloj() > reloj) rango = {};
    reloj = serie.reloj();
    rango.Unir({puntos.front().x, puntos.back().x});
  }
  if (rango.vacio()) return std::nullopt;
  return Tramo{std::floor(rango.minimo / kMinuto) * kMinuto,
               std::floor(rango.maximo / kMinuto) * kMinuto + kMinuto};
}

Chart::Chart() : data_(std::make_unique<Data>()) {}
Chart::~Chart() = default;

void Chart::AddSerie(const store::Codigo& code) {
  if (data_->series.size() >= kMaxSeries) return;
  data_->series.emplace_back(code);
  Touch();
  if (on_data) on_data(code);
}

void Chart::AddMedia(int periodos) {
  if (periodos < 1 || periodos > kMaxPeriodos || data_->medias.size() >= kMaxMedias) return;
  MediaMovil& media = data_->medias.emplace_back(static_cast<std::size_t>(periodos));
  if (!data_->series.empty()) media.Seguir(data_->series.front().trazo().linea());
  Touch();
}

void Chart::AddReg(const store::Codigo& code, const Registro& record) {
  if (Serie* serie = data_->Find(code)) serie->Add(record, data_->calendario);
}

void Chart::ShowFeed(const store::Codigo& code) {
  Serie* serie = data_->Find(code);
  if (!serie) return;
  serie->Mostrar();
  if (serie == &data_->series.front())
    for (MediaMovil& media : data_->medias) media.Seguir(serie->trazo().linea());
  Touch();
}

std::size_t Chart::Count(int serie) const {
  const Serie* found = data_->Numero(serie);
  return found ? found->registros().size() : 0;
}

float Chart::Value(std::size_t index, int serie) const {
  return index < Count(serie) ? data_->Numero(serie)->registros()[index].registro.cierre : 0;
}

void Chart::set_decimals(int decimals) { Set(decimals_, std::clamp(decimals, 0, kMaxDecimals)); }

std::size_t Chart::lineas() const { return data_->series.size() + data_->medias.size(); }
const Linea& Chart::linea(std::size_t index) const { return data_->trazo(index).linea(); }
std::size_t Chart::series() const { return data_->series.size(); }

const std::vector<Barra>& Chart::barras() const {
  return data_->series.empty() ? data_->sin_barras : data_->series.front().barras();
}

Vista Chart::vista() const {
  const Tramo visto = data_->encuadre.Visto(data_->Todo().value_or(Tramo{0, kMinuto}));
  Rango precios;
  for (std::size_t i = 0; i < lineas(); ++i)
    precios.Unir(data_->trazo(i).Entre(visto.desde, visto.hasta));
  Vista vista{.desde = visto.desde, .hasta = visto.hasta};
  Ajustar(vista, precios, kPasos[static_cast<std::size_t>(decimals_)]);
  if (const double volumen = MasAlta(barras(), visto); volumen > 0) vista.volumen = volumen;
  return vista;
}

bool Chart::ve_todo() const { return data_->encuadre.ve_todo(); }

void Chart::Acercar(double x, double factor) {
  const auto todo = data_->Todo();
  if (todo && data_->encuadre.Acercar(*todo, x, factor)) Touch();
}

void Chart::Desplazar(double parte) {
  const auto todo = data_->Todo();
  if (todo && data_->encuadre.Desplazar(*todo, parte)) Touch();
}

void Chart::VerTodo() {
  if (data_->encuadre.VerTodo()) Touch();
}

std::optional<Senalado> Chart::Senalar(double x) const { return Vecino(x, 0); }

std::optional<Senalado> Chart::Vecino(double x, int steps) const {
  const auto puntos = data_->puntos();
  if (puntos.empty() || std::isnan(x)) return std::nullopt;
  std::size_t index = Cercano(puntos, x);
  for (; steps > 0 && index + 1 < puntos.size(); --steps)
    index = HastaX(puntos, puntos[index + 1].x);
  for (; steps < 0 && puntos[index].x > puntos.front().x; ++steps) {
    const auto first = std::ranges::lower_bound(puntos, puntos[index].x, {}, &Punto::x);
    index = static_cast<std::size_t>(first - puntos.begin()) - 1;
  }
  return data_->Lugar(index);
}

std::string Chart::TextoHora(double x) {
  if (!std::isfinite(x)) return {};
  const double del_dia = std::fmod(std::floor(x), kDia);
  const int segundos = static_cast<int>(del_dia < 0 ? del_dia + kDia : del_dia);
  const int hhmmss = segundos / 3600 * 10000 + segundos / 60 % 60 * 100 + segundos % 60;
  return base::masks::kTime.Format(static_cast<double>(hhmmss));
}

std::string Chart::TextoPrecio(double price) const {
  return kPrecios[static_cast<std::size_t>(decimals_)].Format(price);
}

}  // namespace charts

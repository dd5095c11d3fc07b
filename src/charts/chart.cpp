#include "charts/chart.h"

namespace charts {

struct Chart::Data {
  std::vector<Linea> lineas;
  std::vector<Barra> barras;
};

Chart::Chart() : data_(std::make_unique<Data>()) {}
Chart::~Chart() = default;

void Chart::AddSerie(const store::Codigo&) {}
void Chart::AddMedia(int) {}
void Chart::AddReg(const store::Codigo&, const Registro&) {}
void Chart::ShowFeed(const store::Codigo&) {}
std::size_t Chart::Count(int) const { return 0; }
float Chart::Value(std::size_t, int) const { return 0; }
std::size_t Chart::lineas() const { return data_->lineas.size(); }
const Linea& Chart::linea(std::size_t index) const { return data_->lineas[index]; }
std::size_t Chart::series() const { return 0; }
const std::vector<Barra>& Chart::barras() const { return data_->barras; }
Vista Chart::vista() const { return {}; }
bool Chart::ve_todo() const { return true; }
void Chart::Acercar(double, double) {}
void Chart::Desplazar(double) {}
void Chart::VerTodo() {}
std::optional<Senalado> Chart::Senalar(double) const { return std::nullopt; }
std::optional<Senalado> Chart::Vecino(double, int) const { return std::nullopt; }
std::string Chart::TextoHora(double) { return {}; }
std::string Chart::TextoPrecio(double) const { return {}; }

}  // namespace charts

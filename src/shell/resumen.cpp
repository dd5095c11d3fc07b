#include "shell/resumen.h"

#include <cmath>
#include <string>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/palette.h"
#include "base/text.h"

namespace shell {
namespace {

namespace palette = base::palette;
using portfolios::FichaCartera;

/// Blanks in front belong to the name.
std::string NombreDe(const FichaCartera& record) {
  return base::AnsiToUtf8(base::TrimEnd(record.Nombre.bytes()));
}

struct Colors {
  base::Color back, fore;
};

/// The texts decide, not the amounts: "9" stands above "10".
Colors ColorsOf(std::string_view before, std::string_view now) {
  if (before < now) return {palette::kGreen, palette::kBrightWhite};
  if (before > now) return {palette::kRed, palette::kBrightWhite};
  return {palette::kBrightWhite, palette::kBlack};
}

void Paint(platform::TextBox& box, const Colors& colors) {
  box.set_back(colors.back);
  box.set_fore(colors.fore);
}

}  // namespace

Resumen::Resumen(MDI& mdi, const store::InstrumentStore& store,
                 portfolios::PortfolioStore& portfolios, portfolios::TCartera& holdings)
    : mdi_(mdi), store_(store), portfolios_(portfolios), holdings_(holdings) {}

void Resumen::Combo1_Click() {
  if (store_.NumInstrumentos() == 0 || portfolios_.NumCarteras() == 0) return;
  if (mdi_.Combo1.text().empty()) ElegirPrimera();
  portfolios_.RecalcularPosiciones();
  const std::string& chosen = mdi_.Combo1.text();
  const Total total = Valorar(chosen);
  if (const int p = Mostrada(chosen); p > 0) holdings_.Mostrar(p);
  Escribir(total);
}

void Resumen::ElegirPrimera() {
  mdi_.Combo1.set_text(portfolios::NombreCorto(portfolios_.Carteras(1).Nombre));
  // A name without room for two blanks has no entry to choose.
  if (mdi_.Combo1.text().empty()) mdi_.Combo1.set_text(NombreDe(portfolios_.Carteras(1)));
}

Resumen::Total Resumen::Valorar(std::string_view chosen) const {
  Total total;
  for (int i = 1; i <= portfolios_.NumCarteras(); ++i) {
    const std::string name = NombreDe(portfolios_.Carteras(i));
    if (!name.empty() && chosen.starts_with(name)) Sumar(i, total);
  }
  return total;
}

void Resumen::Sumar(int cartera, Total& total) const {
  for (int j = 1; j <= portfolios_.NumPosiciones(cartera); ++j) {
    const portfolios::Operacion& position = portfolios_.Posiciones(cartera, j);
    const double titulos = position.Titulos;
    total.Coste += titulos * static_cast<double>(position.Precio);
    for (std::int16_t slot = store_.SiguienteDe(position.Codigo, 0); slot != 0;
         slot = store_.SiguienteDe(position.Codigo, slot)) {
      total.Valor += static_cast<double>(store_.Instrumentos(slot).Ultimo) * titulos;
    }
  }
}

/// The portfolio of the holdings: the one of exactly that name, else the first that is valued; 0
/// when none is.
int Resumen::Mostrada(std::string_view chosen) const {
  int first = 0;
  for (int i = 1; i <= portfolios_.NumCarteras(); ++i) {
    const std::string name = NombreDe(portfolios_.Carteras(i));
    if (name.empty()) continue;
    if (name == base::TrimEnd(chosen)) return i;
    if (first == 0 && chosen.starts_with(name)) first = i;
  }
  return first;
}

void Resumen::Escribir(const Total& total) {
  const auto& [Coste, Valor] = total;
  const std::string value = base::masks::kWhole.Format(Valor);
  const std::string gain = base::masks::kWhole.Format(Valor - Coste);
  if (Valor > 0) Paint(mdi_.Text1, ColorsOf(mdi_.Text1.text(), value));
  if (Valor > Coste || Valor < Coste) {
    const Colors colors = ColorsOf(mdi_.Text3.text(), gain);
    Paint(mdi_.Text2, colors);
    Paint(mdi_.Text3, colors);
  }
  mdi_.Text1.set_text(value);
  mdi_.Text3.set_text(gain);
  if (Coste == 0) return;  // nothing to take a percentage of
  const double percent = Valor * 100 / Coste - 100;
  mdi_.Text2.set_text(std::isfinite(percent) ? base::masks::kPercent.Format(percent) + "%" : "");
}

}  // namespace shell

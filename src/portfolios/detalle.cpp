#include "portfolios/detalle.h"

#include "base/masks.h"
#include "base/text.h"
#include "portfolios/names_and_lines.h"

namespace portfolios {
namespace {

// What a line of the positions says behind its first tab.
store::Codigo CodigoDeLinea(std::string_view line) {
  const std::string_view rest = base::Mid(line, base::Find(line, "\t") + 1);
  return store::Codigo::FromUtf8(base::CutUtf8(rest, 7));
}

std::string LineaOperacion(const Operacion& operation) {
  return (operation.Sentido == Operacion::kCompra ? "C " : "V ") +
         base::NumberText(std::int64_t{operation.Titulos}) + '\t' + operation.Codigo.utf8() +
         base::masks::kMoney.Format(operation.Precio);
}

}  // namespace

Detalle::Detalle(platform::Platform& platform, PortfolioStore& portfolios)
    : Window(platform), portfolios_(portfolios) {
  set_caption("Detalles de operaciones");
  PrepararControles();
  Combo1.on_change = [this] { Combo1_Change(); };
  Combo1.on_click = [this] { Combo1_Click(); };
  List2.on_click = [this] { List2_Click(); };
}

void Detalle::PrepararControles() {
  Combo1.set_label("Cartera");
  List2.set_tool_tip("Titulos en Cartera");
  List1.set_tool_tip("Lista detallada de Operaciones");
  Text1.set_label(" Valoracion");
  Text1.set_text("0,00");
  Text1.set_locked(true);
}

void Detalle::OnLoad() {
  Combo1.Clear();
  AgregarNombres(Combo1, portfolios_);
  Combo1.set_text("");
  List1.Clear();
  List2.Clear();
}

void Detalle::Combo1_Change() {
  portfolios_.RecalcularPosiciones();
  const auto name = base::FixedText<25>::FromUtf8(Text1.text());
  MostrarPosiciones(CarteraLlamada(portfolios_, name.utf8()));
}

void Detalle::Combo1_Click() {
  portfolios_.RecalcularPosiciones();
  MostrarPosiciones(CarteraLlamada(portfolios_, Combo1.text()));
}

void Detalle::MostrarPosiciones(int cartera) {
  if (cartera != 0) ListarPosiciones(List2, portfolios_, cartera);
}

void Detalle::List2_Click() {
  const int cartera = CarteraLlamada(portfolios_, Combo1.text());
  if (cartera == 0 || List2.list_index() < 0) return;
  const auto code = CodigoDeLinea(List2.items()[static_cast<std::size_t>(List2.list_index())]);
  List1.Clear();
  for (int i = 1; i <= portfolios_.NumOperaciones(); ++i) {
    const Operacion& operation = portfolios_.Operaciones(i);
    if (operation.conocida() && operation.Codigo == code && operation.CarteraId == cartera) {
      List1.AddItem(LineaOperacion(operation));
    }
  }
}

}  // namespace portfolios

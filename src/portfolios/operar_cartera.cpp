#include "portfolios/operar_cartera.h"

#include "base/val.h"
#include "portfolios/names_and_lines.h"

namespace portfolios {
namespace {

double Valor(const platform::TextBox& box) { return base::Val(box.text()).value_or(0); }

float FechaDe(const platform::LocalTime& time) {
  return static_cast<float>(time.year % 100 * 10000 + time.month * 100 + time.day);
}

float HoraDe(const platform::LocalTime& time) {
  return static_cast<float>(time.hour * 10000 + time.minute * 100 + time.second);
}

}  // namespace

Operar_Cartera::Operar_Cartera(platform::Platform& platform, const store::InstrumentStore& store,
                               PortfolioStore& portfolios)
    : Window(platform), store_(store), portfolios_(portfolios) {
  set_caption("Ordenes a Cartera");
  PrepararControles();
  Combo1.on_change = [this] { Combo1_Change(); };
  Combo1.on_click = [this] { Combo1_Click(); };
  Text2.on_change = Text4.on_change = [this] { Text_Change(); };
  Text3.on_change = [this] { Text3_Change(); };
  Text5.on_change = Text6.on_change = [this] { Efectivo_Change(); };
  Option1.on_click = [this] { Option1_Click(); };
  Command1.on_click = [this] { Command1_Click(); };
}

void Operar_Cartera::PrepararControles() {
  Combo1.set_label("Carteras");
  Text1.set_label("Cartera");
  Text1.set_locked(true);
  List2.set_tool_tip("Titulos en Cartera");
  Text2.set_label("Titulos");
  Text2.set_tool_tip("Nº de acciones a comprar");
  Text3.set_label("Empresa");
  Text4.set_label("Precio");
  Text4.set_tool_tip("Precio de la orden");
  Option1.set_caption("&Comprar");
  Option2.set_caption("&Vender");
  Command1.set_caption("&Grabar operación");
  Command1.set_tool_tip("Anota la operación en la cartera");
  Text5.set_label("Ingresar");
  Text6.set_label("Reintegro");
  Command2.set_caption("&Aplicar");
  Label8.set_tool_tip("Indica el gasto de la compra");
  Label12.set_tool_tip("Indica a partir de que precio empieza a gaanar");
  Label14.set_tool_tip("Cargo en la cuenta");
  Label6.set_tool_tip("Saldo libre de esta cartera");
  for (auto* label : {&Label8, &Label12, &Label14, &Label6}) label->set_caption("—");
}

void Operar_Cartera::OnLoad() {
  Combo1.Clear();
  Combo1.set_text(kSinCartera);
  for (auto* text : {&Text1, &Text2, &Text3, &Text4, &Text5, &Text6}) text->set_text("");
  Text3.set_tool_tip(kSinNombre);
  List2.Clear();
  Option1.set_value(true);
  Command1.set_enabled(false);
  Command2.set_enabled(false);
}

void Operar_Cartera::OnActivate() {
  AgregarNombres(Combo1, portfolios_);
  if (Combo1.text() != kSinCartera || portfolios_.NumCarteras() == 0) return;
  Combo1.set_text(portfolios_.Carteras(1).Nombre.utf8());
  Combo1_Click();
}

void Operar_Cartera::Combo1_Change() { Text1.set_text(Combo1.text()); }

void Operar_Cartera::Combo1_Click() {
  portfolios_.RecalcularPosiciones();
  Text1.set_text(Combo1.text());
  MostrarPosiciones();
}

void Operar_Cartera::MostrarPosiciones() {
  ListarPosiciones(List2, portfolios_, CarteraLlamada(portfolios_, Text1.text()));
}

bool Operar_Cartera::Completa() const {
  return !Text1.text().empty() && !Text2.text().empty() && !Text3.text().empty() &&
         Valor(Text4) > 0;
}

void Operar_Cartera::Text_Change() { Command1.set_enabled(Completa()); }

void Operar_Cartera::Option1_Click() {
  if (Completa()) Command1.set_enabled(true);
}

void Operar_Cartera::Text3_Change() {
  Text_Change();
  if (Text3.text().empty()) Text3.set_tool_tip(kSinNombre);
  if (const int slot = Instrumento(); slot != 0) {
    Text3.set_tool_tip(store_.Instrumentos(slot).Nombre.utf8());
  }
}

void Operar_Cartera::Efectivo_Change() {
  const double in = Valor(Text5), out = Valor(Text6);
  if ((in > 0 && out == 0) || (out > 0 && in == 0)) Command2.set_enabled(true);
}

store::Codigo Operar_Cartera::CodigoTecleado() const {
  return store::Codigo::FromUtf8(base::UpperUtf8(Text3.text()));
}

int Operar_Cartera::Instrumento() const {
  const store::Codigo code = CodigoTecleado();
  std::int16_t last = 0;
  for (std::int16_t slot = 0; (slot = store_.SiguienteDe(code, slot)) != 0;) last = slot;
  return last;
}

base::FixedText<25> Operar_Cartera::NombreConocido() const {
  // The instrument may have come after its code was typed.
  const int slot = Text3.tool_tip() == kSinNombre ? Instrumento() : 0;
  return slot != 0 ? base::FixedText<25>(store_.Instrumentos(slot).Nombre.bytes())
                   : base::FixedText<25>::FromUtf8(Text3.tool_tip());
}

Operacion Operar_Cartera::Orden(int cartera) const {
  const platform::LocalTime now = platform().local_time();
  Operacion order;
  order.Codigo = CodigoTecleado();
  order.Nombre = NombreConocido();
  order.Titulos = base::ValInteger<std::int32_t>(Text2.text()).value_or(0);
  order.Precio = base::ValFloat(Text4.text()).value_or(0);
  order.Fecha = FechaDe(now);
  order.Hora = HoraDe(now);
  order.CarteraId = static_cast<std::int16_t>(cartera);
  order.Sentido = Option1.value() ? Operacion::kCompra : Operacion::kVenta;
  return order;
}

bool Operar_Cartera::Registrar(int cartera) {
  const Operacion order = Orden(cartera);
  const bool room = portfolios_.NumOperaciones() < PortfolioStore::kMaxOperaciones;
  if (room && order.Nombre == base::FixedText<25>(kSinNombre)) {
    platform().dialogs().Message("Este código no lo he encontrado, operación rechazada");
    return false;
  }
  if (portfolios_.AgregarOperacion(order)) return true;
  platform().dialogs().Message("No hay sitio para más operaciones");
  return false;
}

void Operar_Cartera::Command1_Click() {
  const int cartera = CarteraLlamada(portfolios_, Text1.text());
  if (cartera != 0 && !Registrar(cartera)) return;
  Vaciar();
  portfolios_.RecalcularPosiciones();
  MostrarPosiciones();
  SetFocus(Text2);
}

void Operar_Cartera::Vaciar() {
  for (auto* text : {&Text2, &Text3, &Text4}) text->set_text("");
  Command1.set_enabled(false);
}

}  // namespace portfolios

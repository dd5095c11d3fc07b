#include "portfolios/cartera.h"

#include <string_view>

#include "base/ansi.h"
#include "base/text.h"
#include "base/val.h"

namespace portfolios {

Cartera::Cartera(platform::Platform& platform, PortfolioStore& portfolios)
    : Window(platform), portfolios_(portfolios) {
  set_caption("Carteras Cotirama");
  PrepararControles();
  for (auto* text : {&Text1, &Text2, &Text3, &Text4, &Text5}) {
    text->on_change = [this] { Text_Change(); };
  }
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
  Command3.on_click = [this] { Command3_Click(); };
}

void Cartera::PrepararControles() {
  Text1.set_label("  Nombre de la Cartera");
  Text1.set_max_length(25);
  Text2.set_label(" Agencia o Broker");
  Text2.set_max_length(20);
  Text3.set_label("     Nº de Cuenta");
  Text3.set_max_length(25);
  Text4.set_label(" Comision *Operacion");
  Text5.set_label(" Comision Minima");
  List1.set_tool_tip("Carteras Configuradas");
  Command1.set_caption("&Agregar esta Cartera");
  Command2.set_caption("&Routing");
  Command3.set_caption("A&ceptar");
}

void Cartera::OnLoad() {
  LlenarLista();
  Vaciar();
}

void Cartera::Text_Change() { Command1.set_enabled(Completa()); }

bool Cartera::Completa() const {
  return !Text1.text().empty() && !Text2.text().empty() && !Text3.text().empty() &&
         base::Val(Text4.text()).value_or(0) > 0;
}

bool Cartera::NombreEntero() const {
  const auto name = base::FixedText<25>::FromUtf8(Text1.text());
  const std::string_view whole = base::TrimEnd(name.bytes());
  // The selector keeps one blank of the padding.
  return !whole.empty() && NombreCorto(name) == base::AnsiToUtf8(whole) + ' ';
}

FichaCartera Cartera::Ficha() const {
  FichaCartera record;
  record.Cuenta = base::FixedText<25>::FromUtf8(Text3.text());
  record.Agencia = base::FixedText<20>::FromUtf8(Text2.text());
  record.Nombre = base::FixedText<25>::FromUtf8(Text1.text());
  record.ComisionOperacion = base::ValFloat(Text4.text()).value_or(0);
  record.ComisionMinima = base::ValFloat(Text5.text()).value_or(0);
  return record;
}

void Cartera::Command1_Click() {
  const bool room = portfolios_.NumCarteras() < PortfolioStore::kMaxCarteras;
  if (room && !Completa()) {
    platform().dialogs().Message("Introduzca todos los datos antes de agregar la cartera");
  } else if (portfolios_.AgregarCartera(Ficha())) {
    LlenarLista();
    Vaciar();
    SetFocus(Text1);
  } else {
    LlenarLista();  // another terminal may have taken the room
    platform().dialogs().Message("No hay sitio para más carteras");
  }
}

void Cartera::Vaciar() {
  for (auto* text : {&Text1, &Text2, &Text3}) text->set_text("");
  for (auto* text : {&Text4, &Text5}) text->set_text("0");
  Command1.set_enabled(false);
}

void Cartera::LlenarLista() {
  List1.Clear();
  for (int i = 1; i <= portfolios_.NumCarteras(); ++i) {
    const FichaCartera& record = portfolios_.Carteras(i);
    List1.AddItem(record.Nombre.utf8() + record.Agencia.utf8());
  }
}

void Cartera::Command2_Click() {
  platform().dialogs().Message(
      "Con el servicio de routing sus órdenes llegarían al mercado al momento. "
      "Pregunte por él a su agencia o broker.");
}

void Cartera::Command3_Click() { Hide(); }

}  // namespace portfolios

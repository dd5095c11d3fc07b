#include "portfolios/operar_cartera.h"

namespace portfolios {

Operar_Cartera::Operar_Cartera(platform::Platform& platform, const store::InstrumentStore& store,
                               PortfolioStore& portfolios)
    : Window(platform), store_(store), portfolios_(portfolios) {
  set_caption("Ordenes a Cartera");
  PrepararControles();
}

void Operar_Cartera::PrepararControles() {}

void Operar_Cartera::OnLoad() {}

void Operar_Cartera::OnActivate() {}

void Operar_Cartera::Combo1_Change() {}

void Operar_Cartera::Combo1_Click() { ListarPosiciones(); }

void Operar_Cartera::Text_Change() { Command1.set_enabled(Completa()); }

void Operar_Cartera::Text3_Change() {}

void Operar_Cartera::Option1_Click() {}

void Operar_Cartera::Efectivo_Change() {}

void Operar_Cartera::Command1_Click() { (void)store_; }

bool Operar_Cartera::Completa() const { return false; }

void Operar_Cartera::ListarPosiciones() { (void)portfolios_; }

}  // namespace portfolios

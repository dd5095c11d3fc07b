#include "portfolios/cartera.h"

namespace portfolios {

Cartera::Cartera(platform::Platform& platform, PortfolioStore& portfolios)
    : Window(platform), portfolios_(portfolios) {
  set_caption("Carteras Cotirama");
  PrepararControles();
}

void Cartera::PrepararControles() {}

void Cartera::OnLoad() { LlenarLista(); }

void Cartera::Text_Change() { Command1.set_enabled(Completa()); }

void Cartera::Command1_Click() {}

void Cartera::Command2_Click() {}

void Cartera::Command3_Click() { Hide(); }

bool Cartera::Completa() const { return false; }

void Cartera::LlenarLista() { (void)portfolios_; }

}  // namespace portfolios

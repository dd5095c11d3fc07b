#include "portfolios/detalle.h"

namespace portfolios {

Detalle::Detalle(platform::Platform& platform, PortfolioStore& portfolios)
    : Window(platform), portfolios_(portfolios) {
  set_caption("Detalles de operaciones");
}

void Detalle::OnLoad() {}

void Detalle::Combo1_Change() { ListarPosiciones(Text1.text()); }

void Detalle::Combo1_Click() { ListarPosiciones(Combo1.text()); }

void Detalle::List2_Click() {}

void Detalle::ListarPosiciones(std::string_view) { (void)portfolios_; }

}  // namespace portfolios

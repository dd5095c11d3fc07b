#include "shell/resumen.h"

namespace shell {

Resumen::Resumen(MDI& mdi, const store::InstrumentStore& store,
                 portfolios::PortfolioStore& portfolios, portfolios::TCartera& holdings)
    : mdi_(mdi), store_(store), portfolios_(portfolios), holdings_(holdings) {}

void Resumen::Combo1_Click() {
  if (store_.NumInstrumentos() == 0 || portfolios_.NumCarteras() == 0) return;
  (void)mdi_;
  (void)holdings_;
}

}  // namespace shell

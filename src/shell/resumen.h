#pragma once

#include "portfolios/portfolio_store.h"
#include "portfolios/t_cartera.h"
#include "shell/mdi.h"
#include "store/instrument_store.h"

namespace shell {

/// Values the portfolio that is chosen in the strip of the main window, writes value and gain into
/// the strip's boxes, coloured by how their texts have moved, and keeps the window of the holdings
/// on the same portfolio. All references outlive it.
class Resumen {
 public:
  Resumen(MDI& mdi, const store::InstrumentStore& store, portfolios::PortfolioStore& portfolios,
          portfolios::TCartera& holdings);

  /// Nothing happens while there is no instrument or no portfolio.
  void Combo1_Click();

 private:
  MDI& mdi_;
  const store::InstrumentStore& store_;
  portfolios::PortfolioStore& portfolios_;
  portfolios::TCartera& holdings_;
};

}  // namespace shell

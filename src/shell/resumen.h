#pragma once

#include <string_view>

#include "portfolios/portfolio_store.h"
#include "portfolios/t_cartera.h"
#include "shell/mdi.h"
#include "store/instrument_store.h"

namespace shell {

/// Values the portfolio that is chosen in the strip of the main window, writes value and gain into
/// the strip's boxes, coloured by how their texts have moved, and keeps the window of the holdings
/// on the same portfolio. A portfolio counts as chosen also where its name only begins the
/// selector's text; several are added up. All references outlive it.
class Resumen {
 public:
  Resumen(MDI& mdi, const store::InstrumentStore& store, portfolios::PortfolioStore& portfolios,
          portfolios::TCartera& holdings);

  /// Of a click, and of every tick of the session's timer. Nothing happens while there is no
  /// instrument or no portfolio.
  void Combo1_Click();

 private:
  struct Total {
    double Coste = 0, Valor = 0;
  };

  void ElegirPrimera();
  [[nodiscard]] Total Valorar(std::string_view chosen) const;
  void Sumar(int cartera, Total& total) const;
  [[nodiscard]] int Mostrada(std::string_view chosen) const;
  void Escribir(const Total& total);

  MDI& mdi_;
  const store::InstrumentStore& store_;
  portfolios::PortfolioStore& portfolios_;
  portfolios::TCartera& holdings_;
};

}  // namespace shell

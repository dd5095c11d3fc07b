#pragma once

#include "platform/controls.h"
#include "platform/window.h"
#include "portfolios/portfolio_store.h"

namespace portfolios {

/// Lists the positions of a portfolio, and every operation behind one of them. Only reads. What the
/// constructor takes outlives it.
class Detalle : public platform::Window {
 public:
  Detalle(platform::Platform& platform, PortfolioStore& portfolios);

  platform::ComboBox Combo1;  // portfolio
  platform::ListBox List2;    // its positions
  platform::ListBox List1;    // operations behind the chosen position
  platform::TextBox Text1;    // valuation; locked, stays as it is

  /// Typing looks for a portfolio of the name that stands in `Text1`, not of the one typed.
  void Combo1_Change();
  void Combo1_Click();
  /// Lists the operations of the chosen code in the portfolio that `Combo1` names.
  void List2_Click();

 protected:
  void OnLoad() override;

 private:
  void PrepararControles();
  void MostrarPosiciones(int cartera);

  PortfolioStore& portfolios_;
};

}  // namespace portfolios

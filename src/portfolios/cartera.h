#pragma once

#include "platform/controls.h"
#include "platform/window.h"
#include "portfolios/portfolio_store.h"

namespace portfolios {

/// Dialog that adds a portfolio. Texts are cut to what the record holds; numbers are read
/// leniently, so anything may be typed. What the constructor takes outlives it.
class Cartera : public platform::Window {
 public:
  Cartera(platform::Platform& platform, PortfolioStore& portfolios);

  platform::TextBox Text1, Text2, Text3;  // name, agency, account
  platform::TextBox Text4, Text5;         // commission an operation, least commission
  platform::ListBox List1;                // the portfolios there are, a line each
  platform::Button Command1;              // adds; off until the form is complete
  platform::Button Command2, Command3;    // routing, accept

  /// Of any of the five boxes: `Command1` is on while the form is complete.
  void Text_Change();
  /// Adds and empties the form. With the table full, or the form not complete, one box says so and
  /// what was typed stays.
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();
  /// Whether the strip's selector would show all of the name that is typed, blanks at its end
  /// apart.
  [[nodiscard]] bool NombreEntero() const;
  /// The disk has refused what was last added.
  [[nodiscard]] bool SinGuardar() const { return portfolios_.CarteraSinGuardar(); }

 protected:
  void OnLoad() override;
  void OnActivate() override { SetFocus(Text1); }

 private:
  void PrepararControles();
  [[nodiscard]] bool Completa() const;
  [[nodiscard]] FichaCartera Ficha() const;
  void Vaciar();
  void LlenarLista();

  PortfolioStore& portfolios_;
};

}  // namespace portfolios

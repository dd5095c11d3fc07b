#pragma once

#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "platform/window.h"
#include "portfolios/portfolio_store.h"
#include "store/instrument_store.h"
#include "store/suggestions.h"

namespace portfolios {

/// Dialog that records a purchase or a sale in a portfolio. The tool tip of `Text3` is the name
/// that is known for the code: it starts as kSinNombre and keeps the last name found, also when
/// another code is typed that nobody knows. Nothing is reckoned with the market, and more may be
/// sold than is held. What the constructor takes outlives it.
class Operar_Cartera : public platform::Window {
 public:
  static constexpr std::string_view kSinNombre = "Codigo de la empresa";
  /// Text of the selector until a portfolio is chosen.
  static constexpr std::string_view kSinCartera = "Combo1";

  Operar_Cartera(platform::Platform& platform, const store::InstrumentStore& store,
                 PortfolioStore& portfolios);

  platform::ComboBox Combo1;                         // portfolio
  platform::TextBox Text1;                           // the same; locked
  platform::ListBox List2;                           // its positions
  platform::TextBox Text2, Text3, Text4;             // shares, code, price
  platform::OptionButton Option1;                    // buy
  platform::OptionButton Option2{Option1};           // sell
  platform::Button Command1;                         // records; off until the form is complete
  platform::TextBox Text5, Text6;                    // cash in, cash out
  platform::Button Command2;                         // cash; without effect
  platform::Label Label8, Label12, Label14, Label6;  // cost, break-even, charge, balance: unused

  void Combo1_Change();
  /// Shows the positions of the chosen portfolio.
  void Combo1_Click();
  /// Of `Text2` and `Text4`.
  void Text_Change();
  void Text3_Change();
  /// Instruments for what is being typed as the code.
  [[nodiscard]] std::vector<store::Sugerencia> Sugerencias(std::string_view text) const {
    return store::Sugerencias(store_, text);
  }
  void Option1_Click();
  /// Of `Text5` and `Text6`.
  void Efectivo_Change();
  /// Records the operation in the journal, dated by the machine's clock, and empties the form. A
  /// code that nobody knows, or a full journal, is told in a box and all stays.
  void Command1_Click();
  /// The disk has refused the operation that was last recorded.
  [[nodiscard]] bool SinGuardar() const { return portfolios_.OperacionSinGuardar(); }

 protected:
  void OnLoad() override;
  void OnActivate() override;

 private:
  void PrepararControles();
  [[nodiscard]] bool Completa() const;
  [[nodiscard]] store::Codigo CodigoTecleado() const;
  /// Slot of the code that is typed, the last of several; 0 when nobody knows it.
  [[nodiscard]] int Instrumento() const;
  /// kSinNombre when there is none.
  [[nodiscard]] base::FixedText<25> NombreConocido() const;
  [[nodiscard]] bool Registrar(int cartera);
  [[nodiscard]] Operacion Orden(int cartera) const;
  void Vaciar();
  void MostrarPosiciones();

  const store::InstrumentStore& store_;
  PortfolioStore& portfolios_;
};

}  // namespace portfolios

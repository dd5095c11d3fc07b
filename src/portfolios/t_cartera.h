#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "portfolios/portfolio_store.h"
#include "views/grid_view.h"

namespace portfolios {

/// The holdings of one portfolio, a row per instrument held, valued with every quote. Loaded hidden
/// at start; paints unseen as well as seen. Its last three columns stay where they are, as their
/// figures are the row's valuation. What the constructor takes outlives it.
class TCartera : public views::GridView {
 public:
  TCartera(const views::GridContext& context, const PortfolioStore& portfolios);

  /// The portfolio shown; 0 when the rows must be made anew.
  [[nodiscard]] std::int16_t CarteraActual() const { return CarteraActual_; }

  /// Makes the rows those of portfolio `p`, unless they are already, whatever their order; then
  /// only rows of changed holdings are painted. There is one for each position and each instrument
  /// of its code, 20 of a code at most. A number that no portfolio can have changes nothing.
  void Mostrar(int p);
  /// Takes the settings anew; the rows are then made anew with the next `Mostrar`.
  void ColoresOn() override;
  /// After a quote: paints every row of the instrument's name with flash; adds none.
  void negoti(std::int16_t indice);

  void G_DblClick() override;
  [[nodiscard]] int G_BeforeMoveColumn(int from, int to) const override;

 private:
  /// What a row was made for.
  struct Valor {
    std::int16_t slot = 0;
    base::FixedText<20> Nombre;  // as it was then: the row is found by it
    std::int32_t Titulos = 0;    // as painted
    float Precio = 0;

    [[nodiscard]] bool SameRow(const Valor& other) const {
      return slot == other.slot && Nombre == other.Nombre;
    }
    /// A price that is no number is the same as any.
    [[nodiscard]] bool SameHolding(const Valor& other) const {
      return Titulos == other.Titulos && !(Precio < other.Precio || Precio > other.Precio);
    }
  };

  [[nodiscard]] std::vector<Valor> ValoresDe(int p) const;
  void Rehacer(int p);
  void BuildValuedRow(const store::Instrumento& record);

  const PortfolioStore& portfolios_;
  std::int16_t CarteraActual_ = 0;
  std::vector<Valor> valores_;  // of the rows, in the order of the positions
  std::string name_;
};

}  // namespace portfolios

#include <limits>

#include "terminal_fixture.h"

namespace {

namespace palette = base::palette;

class ResumenTest : public TerminalTest {
 protected:
  ResumenTest() { Start(); }

  void Cotizar(std::string_view code, float last) {
    store::Instrumento record;
    record.Codigo.assign(code);
    record.Nombre.assign(code);
    record.Ultimo = last;
    ASSERT_NE(terminal->store.GuardarMaestro(record), 0);
  }

  void Click(std::string_view chosen) {
    terminal->MDI.Combo1.set_text(chosen);
    terminal->MDI.Combo1.on_click();
  }

  /// Value, percentage and gain, each after the mark of its colours: "+", "-", "=".
  [[nodiscard]] std::string Boxes() const {
    std::string out;
    for (const auto* box : {&terminal->MDI.Text1, &terminal->MDI.Text2, &terminal->MDI.Text3}) {
      const bool fits =
          box->fore() ==
          (box->back() == palette::kBrightWhite ? palette::kBlack : palette::kBrightWhite);
      const char mark = box->back() == palette::kGreen         ? '+'
                        : box->back() == palette::kRed         ? '-'
                        : box->back() == palette::kBrightWhite ? '='
                                                               : '?';
      out += (fits ? mark : '?') + box->text() + " ";
    }
    return out;
  }
};

TEST_F(ResumenTest, TheColoursTellHowTheTextsHaveMoved) {
  AgregarCartera("Bolsa");
  Comprar(1, "ALD", 100, 10);
  const std::pair<float, const char*> cases[] = {
      {10, "+1,000 =0.00% =0 "},        // costs as much: the gain takes no colours
      {11, "+1,100 +10.00% +100 "},     //
      {11, "=1,100 =10.00% =100 "},     //
      {10.5F, "-1,050 +5.00% +50 "},    // the gain fell, its text rose
      {12, "+1,200 -20.00% -200 "},     //
      {10, "-1,000 -0.00% -0 "},        // its colours stay
      {9, "+900 --10.00% --100 "},      // "9" above "1", "-" below "0"
      {9.004F, "=900 =-9.96% =-100 "},  // only the percentage moves
      {0, "=0 --100.00% --1,000 "},     // a value of 0 takes no colours
      {-1, "=-100 +-110.00% +-1,100 "},
  };
  for (const auto& [last, boxes] : cases) {
    Cotizar("ALD", last);
    Click("Bolsa ");
    EXPECT_EQ(Boxes(), boxes) << last;
  }
}

TEST_F(ResumenTest, WhatCostsNothingLeavesThePercentage) {
  AgregarCartera("Vacia");
  AgregarCartera("Regalo");
  AgregarCartera("Bolsa");
  Comprar(2, "ALD", 10, 0);
  Comprar(3, "ALD", 10, 4);
  Cotizar("ALD", 5);
  Click("Vacia ");
  EXPECT_EQ(Boxes(), "=0 = =0 ");
  Click("Bolsa ");
  EXPECT_EQ(Boxes(), "+50 +25.00% +10 ");
  Click("Regalo ");
  EXPECT_EQ(Boxes(), "=50 +25.00% +50 ");
  Click("Vacia ");
  EXPECT_EQ(Boxes(), "=0 +25.00% +0 ");
  Cotizar("ALD", std::numeric_limits<float>::quiet_NaN());
  Click("Bolsa ");
  EXPECT_EQ(Boxes(), "= + + ") << "no number, no text";
}

TEST_F(ResumenTest, AddsUpWhatBeginsTheChosenTextAndShowsTheHoldingsOfOne) {
  const std::string full = "Cartera de veinticinco añ";
  for (const std::string_view name : {"", "Bolsa", "Bolsa larga", "Bolsa", " Sangrada"}) {
    AgregarCartera(name);
  }
  AgregarCartera(full);
  for (int cartera = 1; cartera <= 6; ++cartera) Comprar(cartera, "ALD", 1 << cartera, 1);
  Comprar(3, "DESCON", 64, 1);  // known to nobody: it has only cost
  Comprar(2, "ald", 64, 1);
  Cotizar("ALD", 1);
  struct Case {
    std::string_view chosen;
    const char *value, *gain;
    int shown;
  };
  const Case cases[] = {
      {"Bolsa larga ", "28", "-128", 3},
      {"Bolsa ", "20", "-64", 2},
      {"Bolsa larg", "20", "-64", 2},  // no name is this one: the first that begins it
      {"Bols", "0", "0", 2},
      {"bolsa", "0", "0", 2},
      {" Bolsa", "0", "0", 2},
      {"Sangrada", "0", "0", 2},
      {" Sangrada ", "32", "0", 5},
      {full, "64", "0", 6},
      {" ", "0", "0", 6},
  };
  for (const auto& [chosen, value, gain, shown] : cases) {
    Click(chosen);
    EXPECT_EQ(terminal->MDI.Text1.text(), value) << chosen;
    EXPECT_EQ(terminal->MDI.Text3.text(), gain) << chosen;
    EXPECT_EQ(terminal->TCartera.CarteraActual(), shown) << chosen;
    EXPECT_EQ(terminal->TCartera.G.rows(), 2) << chosen;
    EXPECT_EQ(terminal->MDI.Combo1.text(), chosen);
  }
  const auto twin = terminal->store.AgregarSinDatos(store::Codigo("ALD"), "TWIN");
  terminal->store.GuardarCotizacion(twin, {.Ultimo = 2});
  Click("Bolsa ");
  EXPECT_EQ(terminal->MDI.Text1.text(), "60") << "every instrument of the code counts";
}

TEST_F(ResumenTest, AnEmptySelectorTakesTheFirstPortfolioOnceThereIsAMarket) {
  for (const char* name : {"Ahorro", "Nombre que lo ocupa todo."}) {
    dir.Write("Carteras.QRT", "");
    Start();
    Cotizar("ALD", 1);
    Click("");
    EXPECT_EQ(terminal->MDI.Combo1.text() + Boxes(), "= = = ") << "no portfolio";
    AgregarCartera(name);
    AgregarCartera("Otra");
    EXPECT_EQ(terminal->MDI.Combo1.items().back(), "Otra ");
    Start();
    Click("");
    EXPECT_EQ(terminal->MDI.Combo1.text() + Boxes(), "= = = ") << "no market";
    Cotizar("ALD", 1);
    Click("");
    EXPECT_EQ(base::Trim(terminal->MDI.Combo1.text()), name);
    EXPECT_EQ(terminal->TCartera.CarteraActual(), 1);
  }
}

}  // namespace

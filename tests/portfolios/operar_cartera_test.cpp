#include "portfolios/operar_cartera.h"

#include "base/masks.h"
#include "dialog_fixture.h"

namespace {

class OperarCartera : public DialogTest {
 protected:
  void Fill(std::string_view shares, std::string_view code, std::string_view price) {
    dialog.Text2.set_text(shares);
    dialog.Text3.set_text(code);
    dialog.Text4.set_text(price);
  }
  std::string Typed() const {
    return dialog.Text2.text() + '|' + dialog.Text3.text() + '|' + dialog.Text4.text();
  }
  void Arrive(std::string_view code, std::string_view name) {
    ASSERT_GT(store.AgregarSinDatos(store::Codigo(code), base::Utf8ToAnsi(name)), 0);
  }
  /// The last of the journal: "code|name|shares|price|date|time|portfolio|way".
  std::string Last() const {
    const portfolios::Operacion& last = portfolios.Operaciones(portfolios.NumOperaciones());
    std::string text = last.Codigo.utf8() + '|' + last.Nombre.trimmed_utf8();
    for (const float number : {float(last.Titulos), last.Precio, last.Fecha, last.Hora,
                               float(last.CarteraId), float(last.Sentido)}) {
      text += '|' + base::NumberText(number);
    }
    return text;
  }

  store::InstrumentStore store;
  portfolios::Operar_Cartera dialog{outside, store, portfolios};
};

TEST_F(OperarCartera, TakesTheFirstPortfolioAndListsNamesAgainAtEachShow) {
  dialog.Show();
  EXPECT_EQ(dialog.Combo1.text() + dialog.Text1.text(), "Combo1");
  AddPortfolio("A");
  AddPortfolio("B");
  Operate(1, "TEF", 100, 10);
  Operate(2, "SAN", 7, 1234.5F, 2);
  dialog.Show();
  EXPECT_EQ(dialog.Combo1.text() + dialog.Text1.text(), Name("A") + Name("A"));
  EXPECT_EQ(Lines(dialog.List2), "100\tTEF    \t10.00|");
  dialog.Combo1.Click(1);
  EXPECT_EQ(dialog.Text1.text() + Lines(dialog.List2), Name("B") + "-7\tSAN    \t1,234.50|");
  dialog.Combo1.set_text("typed");
  dialog.Show();
  EXPECT_EQ(dialog.Text1.text() + Lines(dialog.List2), "typed-7\tSAN    \t1,234.50|");
  const std::string names = Name("A") + '|' + Name("B") + '|';
  EXPECT_EQ(Lines(dialog.Combo1), names + names);
  Fill("1", "X", "1");
  dialog.Text5.set_text("1");
  dialog.Option2.set_value(true);
  dialog.UserClose();
  dialog.Show();
  EXPECT_EQ(Lines(dialog.Combo1) + dialog.Text1.text() + Typed(), names + Name("A") + "||");
  EXPECT_TRUE(dialog.Option1.value() && dialog.Text5.text().empty());
  EXPECT_FALSE(dialog.Command1.enabled() || dialog.Command2.enabled());
}

TEST_F(OperarCartera, LightsItsButtonsAsTheBoxesChange) {
  AddPortfolio("A");
  dialog.Show();
  const std::tuple<const char*, const char*, const char*, bool> orders[] = {
      {"1", "X", "1", true},  {"", "X", "1", false},    {"0", " ", ".5", true},
      {"1", "", "1", false},  {"x", "X", "1e39", true}, {"1", "X", ",5", false},
      {"1", "X", "-1", false}};
  for (const auto& [shares, code, price, complete] : orders) {
    Fill(shares, code, price);
    EXPECT_EQ(dialog.Command1.enabled(), complete) << shares << '|' << code << '|' << price;
  }
  Fill("1", "X", "1");
  dialog.Text3.set_text("");
  EXPECT_FALSE(dialog.Command1.enabled());
  dialog.Text3.set_text("X");
  const auto buy = [this] {
    dialog.Option2.set_value(true);
    dialog.Option1.set_value(true);
    return dialog.Command1.enabled();
  };
  dialog.Combo1.set_text("");
  EXPECT_TRUE(buy()) << "takes nothing back";
  dialog.Text2.set_text("2");
  EXPECT_FALSE(buy()) << "without a portfolio";
  dialog.Combo1.set_text("A");
  EXPECT_TRUE(!dialog.Command1.enabled() && buy());

  struct Step {
    platform::TextBox& box;
    const char* text;
    bool lights;
  };
  for (const auto& [box, text, lights] :
       {Step{dialog.Text5, "0", false}, Step{dialog.Text6, "-1", false},
        Step{dialog.Text5, "5", false}, Step{dialog.Text6, "x", true},
        Step{dialog.Text6, "3", false}, Step{dialog.Text5, "", true}}) {
    dialog.Command2.set_enabled(false);
    box.set_text(text);
    EXPECT_EQ(dialog.Command2.enabled(), lights) << text;
  }
  dialog.Text6.set_text("0");
  EXPECT_TRUE(dialog.Command2.enabled()) << "nothing takes it back";
}

TEST_F(OperarCartera, RecordsWhatWasTypedAtTheMachinesTime) {
  for (const char* const name : {"A", "B", "B"}) AddPortfolio(name);
  Arrive("TEF", "TELEFONICA");
  dialog.Show();
  dialog.Combo1.Click(2);
  const std::tuple<platform::LocalTime, const char*, const char*, bool, const char*> cases[] = {
      {{2000, 4, 26, 0, 0, 0}, "1.5", "12,50", true, "2|12|426|0|2|1"},
      {{1999, 12, 31, 23, 59, 59}, "2.5", "1.5", false, "2|1.5|991231|235959|2|2"},
      {{2000, 1, 1, 9, 5, 7}, "3e9", "1e39", true, "0|0|101|90507|2|1"}};
  for (const auto& [time, shares, price, buy, expected] : cases) {
    outside.clock = time;
    (buy ? dialog.Option1 : dialog.Option2).set_value(true);
    Fill(shares, "tef", price);
    dialog.Command1.Click();
    EXPECT_EQ(Last(), std::string("TEF    |TELEFONICA|") + expected);
    EXPECT_TRUE(Typed() == "||" && !dialog.Command1.enabled());
  }
  EXPECT_EQ(Lines(dialog.List2), "0\tTEF    \t12.00|");
  EXPECT_EQ(dialog.Text3.tool_tip(), portfolios::Operar_Cartera::kSinNombre);
  EXPECT_EQ(outside.desktop().focus, &dialog.Text2);
}

TEST_F(OperarCartera, KeepsTheNameLastFoundAndRefusesACodeWithoutAndAFullJournal) {
  AddPortfolio("A");
  dialog.Show();
  Fill("1", "NADIE", "2");
  dialog.Command1.Click();
  EXPECT_EQ(LastBox(), "Este código no lo he encontrado, operación rechazada");
  EXPECT_TRUE(Typed() == "1|NADIE|2" && portfolios.NumOperaciones() == 0);
  Arrive("NADIE", "POR FIN");
  dialog.Command1.Click();
  EXPECT_EQ(Last(), "NADIE  |POR FIN|1|2|426|0|1|1") << "known by now";
  for (const char* const name : {"CAÑAS", "OTRAS CAÑAS"}) Arrive("\xD1U45678", name);
  for (const char* const code : {"ñu45678x", "nadiex"}) {
    Fill("1", code, "2");
    EXPECT_EQ(dialog.Text3.tool_tip(), "OTRAS CAÑAS         ");
  }
  dialog.Command1.Click();
  EXPECT_EQ(Last(), "NADIEX |OTRAS CAÑAS|1|2|426|0|1|1") << "the name of the code before it";

  Operate(0, "ZZZ", 1, 1);
  Fill("1", "ZZZ", "2");
  dialog.Combo1.set_text("A");  // not all of a name
  dialog.Command1.Click();
  EXPECT_EQ(Typed() + Lines(dialog.List2), "||");
  EXPECT_TRUE(portfolios.NumOperaciones() == 3 && outside.boxes.messages.size() == 1);

  dir.Write("Operaciones.QRT", std::string(500 * portfolios::Operacion::kSize, ' '));
  portfolios.CargarCarteras();
  dialog.Combo1.Click(0);
  Fill("1", "ZZZ", "2");
  dialog.Command1.Click();
  EXPECT_EQ(LastBox(), "No hay sitio para más operaciones");
  EXPECT_TRUE(Typed() == "1|ZZZ|2" && portfolios.NumOperaciones() == 500);
}

}  // namespace

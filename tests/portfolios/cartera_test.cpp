#include "portfolios/cartera.h"

#include "dialog_fixture.h"

namespace {

class Cartera : public DialogTest {
 protected:
  void Fill(const std::array<std::string, 5>& texts) {
    for (std::size_t i = 0; i < 5; ++i) boxes[i]->set_text(texts[i]);
  }
  std::string Typed() const {
    std::string text;
    for (const auto* box : boxes) text += box->text() + '|';
    return text;
  }

  portfolios::Cartera dialog{outside, portfolios};
  const std::array<platform::TextBox*, 5> boxes{&dialog.Text1, &dialog.Text2, &dialog.Text3,
                                                &dialog.Text4, &dialog.Text5};
};

TEST_F(Cartera, AddsOnlyWhatIsComplete) {
  const std::pair<std::array<std::string, 5>, bool> cases[] = {
      {{" ", " ", " ", ".5", ""}, true},    {{"", "A", "C", "1", "0"}, false},
      {{"N", "", "C", "1", "0"}, false},    {{"N", "A", "", "1", "0"}, false},
      {{"N", "A", "C", "0", "9"}, false},   {{"N", "A", "C", ",5", "9"}, false},
      {{"N", "A", "C", "1e39", "0"}, true},
  };
  dialog.Show();
  for (const auto& [texts, complete] : cases) {
    Fill(texts);
    EXPECT_EQ(dialog.Command1.enabled(), complete) << Typed();
    if (!complete) dialog.Command1_Click();
  }
  EXPECT_EQ(outside.boxes.messages,
            std::vector<std::string>(5, "Introduzca todos los datos antes de agregar la cartera"));
  for (auto* box : boxes) {
    dialog.Command1.set_enabled(false);
    box->set_text("7");
    EXPECT_TRUE(dialog.Command1.enabled()) << box->label();
  }
  for (int i = 0; i < 10; ++i) AddPortfolio("TWICE");
  dialog.Command1.Click();
  dialog.Text1.set_text("");
  dialog.Command1_Click();
  EXPECT_TRUE(outside.boxes.messages.size() == 7 && portfolios.NumCarteras() == 10);
  EXPECT_EQ(LastBox(), "No hay sitio para más carteras") << "whatever the form says";
  EXPECT_EQ(Typed(), "|7|7|7|7|");
}

TEST_F(Cartera, StoresAndListsAndEmptiesTheForm) {
  AddPortfolio("VIEJA", "BROKER");
  dialog.Show();
  Fill({"AÑO 2000 y todo lo que no cabe", "12345678901234567890x", "0049 1234", "12,50", "1e39"});
  dialog.Command1.Click();
  const portfolios::FichaCartera& record = portfolios.Carteras(2);
  EXPECT_EQ(record.Cuenta.utf8(), Name("0049 1234"));
  EXPECT_TRUE(record.ComisionOperacion == 12 && record.ComisionMinima == 0);
  EXPECT_EQ(Lines(dialog.List1), Name("VIEJA") + support::Pad("BROKER", 20) +
                                     "|AÑO 2000 y todo lo que no12345678901234567890|");
  EXPECT_EQ(Typed(), "|||0|0|");
  EXPECT_TRUE(!dialog.Command1.enabled() && outside.desktop().focus == &dialog.Text1);

  dialog.Text1.set_text("typed");
  dialog.Command2.Click();
  EXPECT_EQ(outside.boxes.messages.size(), 1U);
  dialog.Command3.Click();
  dialog.Show();
  EXPECT_EQ(Typed(), "typed|||0|0|") << "only hidden";
  dialog.UserClose();
  dialog.Show();
  EXPECT_TRUE(Typed() == "|||0|0|" && dialog.List1.items().size() == 2);
}

}  // namespace

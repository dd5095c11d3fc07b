#include "portfolios/detalle.h"

#include "dialog_fixture.h"

namespace {

using Detalle = DialogTest;

TEST_F(Detalle, ListsPositionsAndTheOperationsBehindOneAndTypingLooksForTheOtherBox) {
  portfolios::Detalle dialog(outside, portfolios);
  AddPortfolio("A");
  AddPortfolio("B");
  Operate(1, "TEF", 100, 10);
  Operate(2, "TEF", 9, 9);
  Operate(1, "TEF", 1000, 1234567.5F, 2);
  Operate(1, "TEF", 3, 3, 0);
  Operate(3, "SAN", 5, 1);
  dialog.Show();
  EXPECT_EQ(Lines(dialog.Combo1) + dialog.Combo1.text(), Name("A") + '|' + Name("B") + '|');
  dialog.Combo1.set_text(Name("A"));
  EXPECT_EQ(Lines(dialog.List2), "") << "typed, not chosen";
  Operate(1, "TEFX", 4, 4);
  dialog.Combo1.Click(0);
  EXPECT_EQ(Lines(dialog.List2), "-900\tTEF    \t10.00|4\tTEFX   \t4.00|");
  dialog.List2.Click(0);
  dialog.Combo1.Click(1);
  EXPECT_EQ(Lines(dialog.List1), "C 100\tTEF    10.00|V 1000\tTEF    1,234,567.50|");
  dialog.List2.Click(0);
  EXPECT_EQ(Lines(dialog.List1), "C 9\tTEF    9.00|");

  dialog.Combo1.set_text("typed");
  EXPECT_EQ(Lines(dialog.List2), "9\tTEF    \t9.00|");
  AddPortfolio("0,00");
  dialog.Combo1.set_text("anything");
  dialog.List2.Click(0);
  EXPECT_EQ(Lines(dialog.List2) + Lines(dialog.List1), "5\tSAN    \t1.00|C 9\tTEF    9.00|");
  dialog.UserClose();
  dialog.Show();
  EXPECT_EQ(dialog.Combo1.items().size(), 3U);
  EXPECT_EQ(dialog.Combo1.text() + Lines(dialog.List1) + Lines(dialog.List2), "");
}

}  // namespace

#include "views/tape.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "support/memory_platform.h"

namespace {

using support::RowText;
using State = platform::Window::State;

class Tape : public testing::Test {
 protected:
  void Add(const store::Negocio& trade = {}) { tape.Agregar(trade, "NAME"); }
  void AddRows(int count) {
    for (int n = 0; n < count; ++n) {
      Add();
      tape.Seguir(tape.List1.row());
    }
  }

  support::MemoryPlatform outside;
  std::int16_t FaseCierre = 0;
  views::Form2 tape{outside, FaseCierre};
};

TEST_F(Tape, ARowHoldsTheTradeUnderTheMachinesDate) {
  Add({.Lado = 'C',
       .Hora = 93005,
       .Titulos = -5,
       .Comprador = 101,
       .Vendedor = 999,
       .Precio = 1234.5F});
  outside.clock = {.year = 2009, .month = 4, .day = 26};
  Add({.Lado = 'V', .Hora = 120000.5F, .Precio = 0.125F});
  outside.clock = {.year = 2010, .month = 12, .day = 1, .hour = 23};
  Add({.Lado = '\xD1', .Precio = std::numeric_limits<float>::quiet_NaN()});
  Add({.Lado = '\t'});
  EXPECT_EQ(support::GridText(tape.List1),
            "Fecha|Hora|Comprador|Vendedor|Instrumento|Titulos|Precio|Orden\n"
            "000426|93005|101|999|NAME|-5|1,234.50|C\n"
            "090426|120000.5|0|0|NAME|0|.13|V\n"
            "101201|0|0|0|NAME|0||\xC3\x91\n"
            "101201|0|0|0|NAME|0|.00| \n");
  for (int col = 0; col < 8; ++col) {
    EXPECT_EQ(tape.List1.back(1, col), base::palette::kGreen);
    EXPECT_EQ(tape.List1.back(2, col), base::palette::kRed);
    EXPECT_EQ(tape.List1.back(3, col), tape.List1.back_color());
  }
  EXPECT_EQ(tape.List1.row(), 4);
  EXPECT_FALSE(tape.visible());
}

TEST_F(Tape, FollowsTheEndOnlyWithin40RowsOfIt) {
  tape.Seguir(0);
  EXPECT_EQ(tape.List1.top_row(), 0);
  AddRows(100);
  EXPECT_EQ(tape.List1.top_row(), 100);
  tape.List1.set_top_row(62);
  AddRows(1);
  EXPECT_EQ(tape.List1.top_row(), 62);
  tape.List1.set_top_row(64);
  AddRows(1);
  EXPECT_EQ(tape.List1.top_row(), 102);
}

TEST_F(Tape, TheGridFollowsTheInnerSizeAndAMaximisedWindowShowsItself) {
  struct Case {
    State state;
    int width, height;
    platform::Rect grid;
  };
  const platform::Rect design = tape.List1.rect();
  const platform::Rect grown{design.left, design.top, 880, 850 - design.top};
  tape.Load();
  for (const auto& [state, width, height, grid] : {
           Case{State::minimized, 900, 900, design},
           Case{State::normal, 1000, 1000, grown},
           Case{State::normal, 100, 100, grown},
       }) {
    tape.Placed(tape.rect(), state, width, height);
    EXPECT_EQ(tape.List1.rect(), grid) << width;
    EXPECT_FALSE(tape.visible());
  }
  tape.Placed(tape.rect(), State::maximized, 2000, 2000);
  EXPECT_EQ(tape.List1.rect().width, 1880);
  EXPECT_TRUE(tape.visible());
}

TEST_F(Tape, ClosingOnlyHidesItUntilTheProgramEnds) {
  tape.Show();
  AddRows(2);
  tape.UserClose();
  EXPECT_FALSE(tape.visible());
  EXPECT_TRUE(tape.loaded());
  AddRows(1);
  tape.Show();
  EXPECT_EQ(tape.List1.rows(), 4);
  EXPECT_EQ(tape.List1.on_before_move_column(2, 5), 2);
  FaseCierre = 1;
  EXPECT_TRUE(tape.Unload());
}

}  // namespace

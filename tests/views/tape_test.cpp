#include "views/tape.h"

#include "fixture.h"

namespace {

using State = platform::Window::State;

using Tape = ViewTest;

TEST_F(Tape, ARowHoldsTheTradeUnderTheMachinesDate) {
  tape.Agregar({.Lado = 'C',
                .Hora = 93005,
                .Titulos = -5,
                .Comprador = 101,
                .Vendedor = 999,
                .Precio = 1234.5F},
               "NAME");
  outside.clock.year = 2009;
  tape.Agregar({.Lado = 'V', .Hora = 120000.5F, .Precio = 0.125F}, "NAME");
  outside.clock = {.year = 2010, .month = 12, .day = 1, .hour = 23};
  tape.Agregar({.Lado = '\xD1', .Precio = kNan}, "NAME");
  tape.Agregar({.Lado = '\t'}, "");
  EXPECT_EQ(support::GridText(tape.List1),
            "Fecha|Hora|Comprador|Vendedor|Instrumento|Titulos|Precio|Orden\n"
            "000426|93005|101|999|NAME|-5|1,234.50|C\n"
            "090426|120000.5|0|0|NAME|0|.13|V\n"
            "101201|0|0|0|NAME|0||\xC3\x91\n"
            "101201|0|0|0||0|.00| \n");
  for (int col = 0; col < 8; ++col) {
    EXPECT_EQ(tape.List1.back(1, col), base::palette::kGreen);
    EXPECT_EQ(tape.List1.back(2, col), base::palette::kRed);
    EXPECT_EQ(tape.List1.back(3, col), tape.List1.back_color());
  }
  EXPECT_EQ(tape.List1.on_before_move_column(2, 5), 2);
  EXPECT_FALSE(tape.visible());
}

TEST_F(Tape, TheGridFollowsTheInnerSizeAndAMaximisedWindowShowsItselfUntilItIsClosed) {
  const platform::Rect design = tape.List1.rect();
  const platform::Rect grown{design.left, design.top, 880, 850 - design.top};
  tape.Load();
  for (const auto& [state, size, grid] : {std::tuple{State::minimized, 900, design},
                                          {State::normal, 1000, grown},
                                          {State::normal, 100, grown}}) {
    tape.Placed(tape.rect(), state, size, size);
    EXPECT_EQ(tape.List1.rect(), grid) << size;
    EXPECT_FALSE(tape.visible());
  }
  tape.Placed(tape.rect(), State::maximized, 2000, 2000);
  EXPECT_TRUE(tape.visible());
  tape.UserClose();
  EXPECT_TRUE(tape.loaded() && !tape.visible());
  FaseCierre = 1;
  EXPECT_TRUE(tape.Unload());
}

}  // namespace

#include "views/continuo.h"

#include <memory>
#include <random>

#include "fixture.h"

namespace {

using store::Instrumento;
using support::RowText;

class Board : public ViewTest {
 protected:
  Board() {
    pipeline.views.Continuo_negoti = [this](std::int16_t slot) { board->negoti(slot); };
    pipeline.views.Continuo_negotii = [this](std::int16_t slot) { board->negotii(slot); };
    pipeline.AbrirTicket = [this](std::int16_t slot) { tickets.push_back(slot); };
    Open();
  }
  ~Board() override { Close(); }

  void Open() {
    board = std::make_unique<views::Continuo>(
        views::GridContext{outside, dir, store, pipeline, config, FaseCierre});
    board->Load();
  }
  void Close() {
    FaseCierre = 1;
    EXPECT_TRUE(board->Unload());
    FaseCierre = 0;
  }
  void Reopen() {
    Close();
    Open();
  }
  void Load(const Instrumento& record) {
    pipeline.RefrescarInstrumentoCarga(store.GuardarMaestro(record));
  }
  void Load(std::string_view code, std::string_view name, float previous = 10, float last = 10) {
    Instrumento record = Share(code, name, last);
    record.Anterior = previous;
    Load(record);
  }
  void Quote(std::int16_t slot, float last) {
    store.GuardarCotizacion(slot, {.Ultimo = last, .Volumen = 100});
    pipeline.RefrescarInstrumento(slot);
  }
  void TwoTicks() {
    for (int n = 0; n < 2; ++n) board->Timer1_Timer();
  }
  void Mouse(int row, int col, const std::function<void()>& hook) {
    support::Mouse(board->G, row, col, hook);
  }
  void DoubleClick(int row, int col) { Mouse(row, col, board->G.on_double_click); }

  /// "+" a rising cell, "-" a falling one; at rest ">" with the rising row colour, "<" the falling.
  [[nodiscard]] std::string Marks(int row) const {
    return support::Marks(board->G, row,
                          {{{15, 2}, '+'}, {{15, 4}, '-'}, {{10, 0}, '>'}, {{12, 0}, '<'}});
  }
  [[nodiscard]] std::string Initials() const { return support::Initials(board->G); }

  views::ConfigVentanas config;
  std::unique_ptr<views::Continuo> board;
  std::vector<int> tickets;
};

TEST_F(Board, ShowsEveryFieldByItsMask) {
  Instrumento record = Share("TEF", "TELEF\xD3NICA\t");
  record.Anterior = 1234.5F;
  record.Apertura = 9;
  record.Maximo = 11.125F;
  record.Volumen = 1234567;
  record.Efectivo = 98765432.1;
  record.Hora = 93005;
  record.Fecha = 1000426;
  store::Derivar(record);
  Load(record);
  EXPECT_EQ(support::GridText(board->G),
            "Instrumento|Ant|Aper|%D|Ult|Max|Min|Volumen|Efectivo|Medio|Saldos|Hora|Fecha|Pesetas\n"
            "TELEF\xC3\x93NICA          |1,234.50|9.00|-99.19|10.00|11.13|0.00|1,234,567|"
            "98,765,432.10|80.00|-86,419,768.00|09:30:05|2000/04/26|1,664\n");

  record.Anterior = 0;
  for (const auto& [date, text] :
       {std::pair{990426.0F, "99/04/26"}, {1000000, ""}, {1000101, "2000/01/01"}, {kNan, ""}}) {
    record.Fecha = date;
    Load(record);
    EXPECT_EQ(board->G.text(1, 12), text);
    EXPECT_EQ(board->G.text(1, 3), "0.00");
  }
}

TEST_F(Board, AChangedCellFlashesByTheOrderOfItsText) {
  struct Case {
    float from, to, previous;
    std::string_view lit, rest;  // Instrumento, %D, Ult, Volumen, Hora
  };
  const Case cases[]{
      {10, 11, 10, ">++>+", ">>>>>"},
      {11, 10.5F, 5, ">-->+", ">>>>>"},
      {11, 11, 10, ">>>>+", ">>>>>"},
      {9.5F, 10.2F, 0, ">>->+", ">>>>>"},  // "9.50" stands after "10.20"
      {10, 9.9F, 10, ">++>+", "<<<<<"},    // "0.00" to "-1.00": falls by text, turned by its sign
      {9.9F, 9.8F, 10, "<--<+", "<<<<<"},  // "-1.00" to "-2.00": rises by text, turned
      {9.8F, 10.2F, 10, "<+-<+", ">>>>>"},
  };
  temp.Write("MC.CAM", "  11  1");
  Reopen();
  Load("TEF", "TELEFONICA");
  for (const Case& c : cases) {
    Load("TEF", "TELEFONICA", c.previous, c.from);
    Quote(1, c.from);
    TwoTicks();
    Quote(1, c.to);
    EXPECT_EQ(Marks(1), c.lit) << c.to;
    board->Timer1_Timer();
    EXPECT_EQ(Marks(1), c.lit) << c.to;
    board->Timer1_Timer();
    EXPECT_EQ(Marks(1), c.rest) << c.to;
  }
}

TEST_F(Board, AQuoteStartsTheFlashAnewAndALoadLeavesIt) {
  Load("TEF", "TELEFONICA");
  Quote(1, 11);
  outside.avanzar(1000);
  Quote(1, 12);
  outside.avanzar(1000);
  EXPECT_EQ(Marks(1).back(), '+');
  Load("TEF", "TELEFONICA", 20, 12);
  EXPECT_TRUE(board->G.back(1, 13) == 2 && board->G.fore(1, 13) == 12);
  outside.avanzar(1000);
  EXPECT_EQ(Marks(1), "<<<<<<<<<<<<<<");
}

TEST_F(Board, NewSharesTakeTheirPlaceAsAFullSortWouldGiveIt) {
  std::mt19937 random(5);
  for (int n = 0; n < 120; ++n) {
    std::string name(1 + random() % 2, ' ');
    for (char& c : name) c = "aAbB1 \xD1"[random() % 7];
    Load(std::to_string(100 + n), std::to_string(random() % 3 * 5) + name);
    if (n == 40) DoubleClick(0, 4);
    if (n == 80) Load("100", "ZZ RENAMED");
  }
  platform::Grid& grid = board->G;
  const std::string shown = grid.AllText();
  grid.Select(1, 0, grid.rows() - 1, 0);
  grid.SortAscending();
  EXPECT_EQ(shown, grid.AllText());
}

TEST_F(Board, AfterAHeadingSortRowsAreStaleUntilAShareArrives) {
  for (const char* code : {"AAA", "BBB", "CCC"}) Load(code, code);
  for (const int slot : {1, 2, 3}) Quote(static_cast<std::int16_t>(slot), 4.0F - float(slot));
  TwoTicks();
  Quote(1, 4);
  DoubleClick(0, 4);
  EXPECT_EQ(Initials(), "CBA");
  EXPECT_EQ(Marks(1).back(), '<');
  EXPECT_EQ(Marks(3).back(), '+') << "a flash moves with its row";
  Quote(1, 5);
  EXPECT_EQ(Initials(), "ABA") << "painted where it once stood";
  TwoTicks();
  for (int row = 1; row <= 3; ++row) EXPECT_EQ(Marks(row), "<<<<<<<<<<<<<<");

  Load("DDD", "DDD");
  Quote(1, 6);
  EXPECT_EQ(Initials(), "AABD");
  EXPECT_EQ(board->G.text(1, 4), "6.00") << "the first row of its name";
}

TEST_F(Board, OnlyALoadAddsRows) {
  for (const char* code : {"CCC", "AAA.D", "BBB"}) Quote(Know(code, code), 5);
  for (const int nobody : {-1, 0, 4}) board->negotii(static_cast<std::int16_t>(nobody));
  EXPECT_EQ(board->G.rows(), 1);
  Reopen();
  EXPECT_EQ(Initials(), "BC") << "suffixed codes get no row when the window loads";
  pipeline.RefrescarInstrumentoCarga(2);
  Quote(2, 6);
  EXPECT_EQ(Initials(), "ABC");
  EXPECT_EQ(board->G.text(1, 4), "6.00");
}

TEST_F(Board, NamesThatChangeForEverFillItOnlySoFar) {
  constexpr int kMost = 2 * store::InstrumentStore::kMaxInstrumentos;
  for (int n = 0; n < kMost + 10; ++n) Load("TEF", std::to_string(n));
  EXPECT_EQ(board->G.rows(), kMost + 1);
}

TEST_F(Board, ContentFollowsItsHeading) {
  Load("TEF", "TELEFONICA", 10, 11);
  EXPECT_EQ(board->G.on_before_move_column(0, 3), 0);
  board->G.MoveColumn(4, board->G.on_before_move_column(4, 1));
  board->G.set_text(0, 2, "Otra");
  Quote(1, 12);
  EXPECT_EQ(RowText(board->G, 0).substr(0, 29), "Instrumento|Ult|Otra|Aper|%D|");
  EXPECT_EQ(RowText(board->G, 1).substr(20, 19), "|12.00||0.00|20.00|");
  EXPECT_EQ(Marks(1).substr(0, 3), ">+-");
}

TEST_F(Board, TakesItsSettingsAnew) {
  Load("TEF", "TELEFONICA", 10, 11);
  temp.Write("MC.CAM", "   1  1");
  temp.Write("COLORES.SET", std::string(48, ' ') + support::I32(9) + std::string(28, '\1'));
  board->ColoresOn();
  EXPECT_EQ(support::GridText(board->G),
            "Instrumento|Ult|Volumen|Hora\nTELEFONICA          |11.00||00:00:00\n");
  EXPECT_EQ(board->G.width(1), 600);
  Quote(1, 12);
  EXPECT_EQ(board->G.back(1, 1), 9);
  temp.Write("MC.CAM", "");
  board->ColoresOn();
  EXPECT_EQ(board->G.cols(), 14);
}

TEST_F(Board, TheMouseFindsTheInstrumentsOfARow) {
  Load("TEF", "TELEF\xD3NICA");
  Load("XXX", "TELEF\xD3NICA");
  Mouse(1, 3, board->G.on_mouse_move);
  EXPECT_EQ(board->G.tool_tip(), "TEF    ");
  Mouse(1, 3, board->G.on_click);
  EXPECT_EQ(board->Label1.caption(), board->G.text(1, 0));

  platform::Window ticket(outside);
  ticket.set_tag("TEF    ");
  ticket.Load();
  for (const auto& [row, col] : {std::pair{1, 1}, {-1, -1}, {9, 0}, {0, 0}}) DoubleClick(row, col);
  EXPECT_TRUE(tickets.empty());
  DoubleClick(1, 0);
  EXPECT_EQ(tickets, std::vector<int>{2});
  ticket.Unload();
}

TEST_F(Board, TheBarSlidesAwayAndBack) {
  const int height = board->Picture1.rect().height;
  const auto places = [&] {
    const platform::Rect& grid = board->G.rect();
    return std::vector<int>{board->Picture1.rect().top, grid.top, grid.height};
  };
  const std::vector<int> shown{0, height + 1, 7000 - height - 301}, hidden{1 - height, 1, 6699};
  board->Placed({}, platform::Window::State::normal, 9000, 7000);
  outside.avanzar(60000);
  EXPECT_EQ(places(), shown) << "without rows the timer does nothing";
  EXPECT_EQ(board->G.rect().width, 9000 - 75);

  Load("TEF", "TELEFONICA");
  outside.avanzar(5900);
  EXPECT_EQ(places(), shown);
  outside.avanzar(1100);
  EXPECT_EQ(places(), hidden);
  Mouse(1, 0, board->G.on_mouse_move);
  outside.avanzar(900);
  EXPECT_EQ(places(), hidden);
  for (int twice = 0; twice < 2; ++twice) {
    Mouse(0, 0, board->G.on_mouse_move);
    outside.avanzar(500);
  }
  EXPECT_EQ(places(), shown);
  outside.avanzar(60000);
  board->Show();
  outside.avanzar(3000);
  EXPECT_EQ(places(), shown) << "whoever opens it sees its commands";
}

TEST_F(Board, CommandsCopyPrintAndSaveAndClosingOnlyHides) {
  temp.Write("MC.CAM", "   1");
  Reopen();
  Load("TEF", "TELEFONICA", 10, 11);
  board->Show();
  board->Command3.Click();
  EXPECT_EQ(outside.clipboard().clears, 1);
  EXPECT_EQ(outside.clipboard().text,
            "Instrumento\tUlt\tHora\rTELEFONICA          \t11.00\t00:00:00\r");
  EXPECT_EQ(outside.desktop().focus, &board->Command5);
  board->Command2.Click();
  ASSERT_EQ(outside.printer().jobs.size(), 1U);
  EXPECT_EQ(outside.printer().jobs[0].title, "Cotirama Mercado Continuo");
  board->G.set_width(1, 1234);
  board->G.on_after_user_resize();
  board->UserClose();
  EXPECT_TRUE(!board->visible() && board->loaded());
  Reopen();
  EXPECT_EQ(board->G.width(1), 1234);
}

}  // namespace

#include "portfolios/t_cartera.h"

#include "support/orders.h"
#include "views/fixture.h"

namespace {

using support::RowText;

class Holdings : public ViewTest {
 protected:
  Holdings() {
    pipeline.steps.cartera = [this](std::int16_t slot) { view.negoti(slot); };
    pipeline.AbrirTicket = [this](std::int16_t slot) { tickets.push_back(slot); };
    WriteColors(2);
    view.Load();
  }
  ~Holdings() override {
    FaseCierre = 1;
    EXPECT_TRUE(view.Unload());
  }

  void WriteColors(base::Color rising_back) {
    views::ColorRecord record;
    record.ColorSubeTexto = 1, record.ColorBajaTexto = 3, record.ColorNormalTexto = 5;
    record.ColorSubeFondo = rising_back, record.ColorBajaFondo = 4;
    record.ColorMovSube = record.ColorMovBaja = 7;
    temp.Write("COLORES.SET", record.Encode());
  }
  void Buy(int cartera, std::string_view code, int shares = 100, float price = 10) {
    EXPECT_TRUE(portfolios.AgregarOperacion(
        support::Order(code, shares, price, portfolios::Operacion::kCompra, cartera)));
    portfolios.RecalcularPosiciones();
  }
  void Quote(std::int16_t slot, float last) {
    store.GuardarCotizacion(slot, {.Ultimo = last});
    pipeline.RefrescarInstrumento(slot);
  }
  void TwoTicks() { view.Timer1_Timer(), view.Timer1_Timer(); }
  void DoubleClick(int row, int col) { support::Mouse(view.G, row, col, view.G.on_double_click); }
  /// "+" a rising cell, "-" a falling one, ">" and "<" the row colours.
  [[nodiscard]] std::string Marks(int row) const {
    return support::Marks(view.G, row,
                          {{{1, 2}, '+'}, {{3, 4}, '-'}, {{5, 10}, '>'}, {{5, 12}, '<'}});
  }

  platform::ComboBox selector;
  views::ConfigVentanas config;
  portfolios::PortfolioStore portfolios{dir, selector};
  portfolios::TCartera view{{outside, dir, store, pipeline, config, FaseCierre}, portfolios};
  std::vector<int> tickets;
};

TEST_F(Holdings, ValuesEachPosition) {
  struct Case {
    int shares;
    float price, last;
    std::string_view row;  // from %D on
  };
  const Case cases[]{
      {100, 10, 11, "10.00|11.00|12.00|0.00|1,000|10.00|100.00|09:30:05"},
      {-100, 10, 11, "10.00|11.00|12.00|0.00|1,000|10.00|-100.00|09:30:05"},
      {100, 0, 8, "-20.00|8.00|12.00|0.00|1,000|0|800.00|09:30:05"},
      {1000000000, 3e38F, 8, "-20.00|8.00|12.00|0.00|1,000|0|8,000,000,000.00|09:30:05"},
      {100, 10, kNan, "||12.00|0.00|1,000|||09:30:05"},
      {100, 10, kInf, "||12.00|0.00|1,000|||09:30:05"},
  };
  int cartera = 0;
  for (const Case& c : cases) {
    store::Instrumento record = Share("TEF", "TELEFONICA", c.last);
    record.Anterior = 10;
    record.Apertura = 9;
    record.Maximo = 12;
    record.Volumen = 1000;
    record.Hora = 93005;
    store.GuardarMaestro(record);
    Buy(++cartera, "TEF", c.shares, c.price);
    view.Mostrar(cartera);
    EXPECT_EQ(RowText(view.G, 1), "TELEFONICA          |10.00|9.00|" + std::string(c.row));
  }
}

TEST_F(Holdings, AChangedCellFlashesByTheOrderOfItsTextUntilTheSecondTick) {
  struct Case {
    float from, to;
    std::string_view lit, rest;  // Instrumento, %D, Ultimo, % Gain, Ganancia, Hora
  };
  const Case cases[]{
      {10, 11, ">+++++", ">>>>>>"},      {11, 11, ">>>>>+", ">>>>>>"},
      {9.5F, 10.5F, ">+-+++", ">>>>>>"},  // "9.50" stands after "10.50"
      {9.8F, 9.7F, "<----+", "<<<<<<"},   // "-2.00" stands before "-3.00", turned by its sign
      {9.7F, 9.8F, "<+++++", "<<<<<<"},
  };
  temp.Write("MC.CAM", "  11");
  view.ColoresOn();
  store::Instrumento record = Share("TEF", "TELEFONICA", 9);
  record.Anterior = 10;
  store.GuardarMaestro(record);
  Buy(1, "TEF");
  view.Mostrar(1);
  EXPECT_EQ(Marks(1), "<-+--+") << "all is new, and below 0 that is a fall";
  for (const Case& c : cases) {
    Quote(1, c.from);
    TwoTicks();
    Quote(1, c.to);
    view.Timer1_Timer();
    EXPECT_EQ(Marks(1), c.lit) << c.to;
    view.Timer1_Timer();
    EXPECT_EQ(Marks(1), c.rest) << c.to;
  }
}

TEST_F(Holdings, RowsAreMadeAnewOnlyWhereTheyAreNotThosePositions) {
  for (const char* code : {"AAA", "BBB", "CCC"}) Know(code, code);
  for (const char* code : {"CCC", "AAA", "NEW"}) Buy(1, code);
  Buy(2, "BBB");
  const auto shows = [&](int p, std::string_view initials, bool anew) {
    TwoTicks();
    view.Mostrar(p);
    EXPECT_EQ(support::Initials(view.G), initials);
    EXPECT_EQ(Marks(1).ends_with('+'), anew) << initials;
  };
  shows(1, "CA", true);
  for (const int nobody : {-1, 0, 11}) shows(nobody, "CA", false);
  DoubleClick(0, 0);
  shows(1, "AC", false);
  Buy(1, "AAA");
  shows(1, "AC", true);
  shows(2, "B", true);
  shows(1, "CA", true);
  Know("NEW", "NEW");
  shows(1, "CAN", true);
  Buy(1, "BBB");
  shows(1, "CANB", true);
  Know("AAA", "RENAMED");
  shows(1, "CRNB", true);
  view.G.set_rows(2);
  shows(1, "CRNB", true);
  EXPECT_EQ(view.CarteraActual(), 1);
}

TEST_F(Holdings, AQuotePaintsEveryRowOfItsName) {
  for (const char* code : {"AAA", "BBB", "CCC"}) Know(code, "MINA");
  Know("DDD", "MINAS");
  for (const char* code : {"AAA", "BBB", "DDD"}) Buy(1, code);
  view.Mostrar(1);
  const auto gains = [&] {
    std::string text;
    for (int row = 1; row <= 3; ++row) text.append(view.G.text(row, 8)).append("|");
    return text;
  };
  Quote(2, 11);
  EXPECT_EQ(gains(), "10.00|10.00|0.00|");
  Quote(3, 12);
  for (const int nobody : {-1, 0, 5}) view.negoti(static_cast<std::int16_t>(nobody));
  EXPECT_EQ(gains(), "0|0|0.00|") << "nothing is held of that one";
  DoubleClick(1, 10);
  EXPECT_EQ(tickets, (std::vector<int>{1, 2, 3}));
}

TEST_F(Holdings, ColumnsFollowTheFlagsAndTheirPlace) {
  struct Case {
    std::string flags, headings, row;
    int from, to, moved_to;
  };
  const std::string all = "Anterior|Apertura|%D|Ultimo|Maximo|Minimo|Volumen|% Gain|Ganancia|Hora";
  const std::string all_cells = "0.00|0.00|0.00|10.00|0.00|0.00||0.00|0.00|00:00:00";
  const Case cases[]{
      {"", all, all_cells, 2, 9, 7},
      {"00010x1", "Ultimo|Volumen|% Gain|Ganancia|Hora", "10.00||0.00|0.00|00:00:00", 2, 0, 1},
      {"       11111", "% Gain|Ganancia|Hora", "0.00|0.00|00:00:00", 1, 2, 1},
      {"1111111", all, all_cells, 9, 1, 9},
  };
  Know("TEF", "TELEFONICA");
  Buy(1, "TEF");
  view.Mostrar(1);
  view.G.set_width(9, 2000);
  for (const Case& c : cases) {
    temp.Write("MC.CAM", c.flags);
    view.ColoresOn();
    EXPECT_EQ(view.CarteraActual(), 0);
    view.Mostrar(1);
    EXPECT_EQ(RowText(view.G, 0), "Instrumento|" + c.headings);
    EXPECT_EQ(RowText(view.G, 1), "TELEFONICA          |" + c.row);
    EXPECT_EQ(view.G.on_before_move_column(c.from, c.to), c.moved_to) << c.headings;
    EXPECT_EQ(view.G.width(view.G.cols() - 2), 2000) << "a width follows its heading";
  }
  EXPECT_EQ(view.G.width(7), 1335);
  EXPECT_TRUE(view.Timer1.enabled());
  view.set_rect({300, 400, 5000, 4000});
  view.Command4_Click();
  portfolios::TCartera next{{outside, dir, store, pipeline, config, FaseCierre}, portfolios};
  next.Load();
  EXPECT_TRUE(next.rect() == view.rect() && next.G.width(9) == 2000);

  WriteColors(9);
  view.ColoresOn();
  view.Mostrar(1);
  EXPECT_EQ(view.G.back(1, 10), 9);
  view.G.MoveColumn(4, 1);
  view.G.set_text(0, 2, "Pesetas");
  Quote(1, 11);
  EXPECT_EQ(RowText(view.G, 1).substr(20, 16), "|11.00|1,830|0.0");
}

}  // namespace

#include "charts/hot.h"

#include "views/fixture.h"

namespace {

using support::RowText;

class HotTest : public ViewTest {
 protected:
  HotTest() {
    pipeline.steps.ticks = [this](std::int16_t slot) { ticks.TickAppend(slot); };
    pipeline.steps.resumen = [this](std::int16_t slot) {
      if (hot.loaded()) hot.ActuaHot(slot);
    };
    temp.Write("Ticks/other", "");
    store.MercadoFecha = 1000426;
    store.MercadoHora = 93000;
  }
  ~HotTest() override {
    FaseCierre = 1;
    EXPECT_TRUE(hot.Unload());
  }

  void Update(std::string_view code, float last, double cash = 0, float volume = 0) {
    if (store.Buscar(code) == 0) Know(code, "NOMBRE");
    const std::int16_t slot = store.Buscar(code);
    ++store.MercadoHora;
    store.GuardarCotizacion(slot, {.Ultimo = last, .Volumen = volume, .Efectivo = cash});
    pipeline.RefrescarInstrumento(slot);
  }
  /// The user is asked, and types that.
  void Type(std::string_view line) {
    outside.boxes.line = line;
    hot.Command4.Click();
  }
  /// "caption/back" of each.
  [[nodiscard]] static std::string Show(std::initializer_list<const platform::Label*> labels) {
    std::string text;
    for (const platform::Label* label : labels) {
      text += label->caption() + '/' + std::to_string(label->back()) + ' ';
    }
    return text;
  }

  views::ConfigVentanas config;
  charts::TickFiles ticks{dir, store};
  charts::Hot hot{{outside, dir, store, pipeline, config, FaseCierre}, ticks};
};

TEST_F(HotTest, EachCodePaintsItsFiguresAndFiftyKeepsTheColour) {
  hot.Load();
  const auto parts = [this] { return Show({&hot.Label6, &hot.Label8, &hot.Label10}); };
  EXPECT_EQ(parts(), "/0 /0 /0 ");
  Update("STSC", 1, 1234567890123.0);
  Update("STSV", 1, 4000.4);
  Update("STSCT1", 1, 7, 12345);
  Update("STSVT1", 1, 7, 0);
  EXPECT_EQ(Show({&hot.LSC, &hot.LSV, &hot.LSCT1, &hot.LSVT1}),
            "1,234,567,890,123 /0 4,000 /0 12,345 /0  /0 ");
  Update("I MCSC", 50);
  Update("I MCT1", 50);
  EXPECT_EQ(parts(), "50.000 /0 50.000 /0 1,234,567,886,123/2 ");
  Update("STSC", 1, 1000);
  EXPECT_EQ(hot.SaldoComprador, 1000);
  EXPECT_EQ(hot.Label10.back(), 2) << "with the next part only";
  Update("I MCSC", 49.9996F);
  Update("I MCT1", 50.5F);
  EXPECT_EQ(parts(), "50.000 /4 50.500 /2 -3,000/4 ");
  Update("STSC", 1, 4000.4);
  Update("I MCSC", 1050.25F);
  Update("I MCT1", kNan);
  EXPECT_EQ(parts(), "1,050.250 /2  /2 /4 ");

  Update("STSCT2", 1, 1, 1);
  for (const int nobody : {-1, 0, 999}) hot.ActuaHot(static_cast<std::int16_t>(nobody));
  EXPECT_EQ(hot.Label8.caption(), " ");
  EXPECT_EQ(hot.LSCT1.caption(), "12,345 ");
}

TEST_F(HotTest, ChartsBeginWithThePastAndGoOn) {
  Update("I IB", 9000);
  Update("I IB", 9001);
  Update("I MCSC", 51);
  hot.Load();
  EXPECT_EQ(hot.Gr1.tool_tip() + hot.Gr2.tool_tip(), "");
  Update("I IB", 9002);
  Update("I TKUP", 8000);
  Update("I ETH2", 8500);
  Update("I MCSC", 52);
  Update("I GRAL", 500);
  const auto values = [](const charts::Chart& chart) {
    std::string text;
    for (int serie = 1; serie <= static_cast<int>(chart.series()); ++serie) {
      for (std::size_t i = 0; i < chart.Count(serie); ++i) {
        text += std::to_string(static_cast<int>(chart.Value(i, serie))) + ' ';
      }
      text += '|';
    }
    return text;
  };
  EXPECT_EQ(values(hot.Gr1), "9000 9001 9002 |8500 |8000 |");
  EXPECT_EQ(values(hot.Gr2), "51 52 |");
  EXPECT_EQ(hot.Gr1.tool_tip() + hot.Gr2.tool_tip(), "IBEX 35%SALDO COMPRADOR");
  ASSERT_EQ(hot.Gr1.linea(0).puntos.size(), 3U);
  EXPECT_EQ(hot.Gr1.linea(0).puntos.back().x - hot.Gr1.linea(0).puntos.front().x, 3);
}

TEST_F(HotTest, TheUserHoldsOneCodeAtATime) {
  struct Case {
    std::string_view typed, held, row;
  };
  const Case cases[]{
      {"ab", "", ""},
      {"  ab  ", "", ""},
      {" tef ", "TEF", "NOMBRE              |3.00"},
      {"san", "TEF", "NOMBRE              |3.00"},
      {"", "TEF", "NOMBRE              |3.00"},
      {"Tef", "", ""},
      {"i ib", "I IB", "NOMBRE              |9.00"},
      {"I IB", "", ""},
      {"telefonica", "TELEFONICA", ""},
      {"telefonica", "", ""},
      {"ñac", "ÑAC", ""},
  };
  temp.Write("MC.CAM", "0001");
  hot.Load();
  Update("TEF", 3);
  Update("I IB", 9);
  for (const Case& c : cases) {
    Type(c.typed);
    EXPECT_EQ(hot.HotCodigos, c.held) << c.typed;
    EXPECT_EQ(hot.NumHot, c.held.empty() ? 0 : 1);
    ASSERT_EQ(hot.G.rows(), c.row.empty() ? 1 : 2) << c.typed;
    EXPECT_EQ(RowText(hot.G, 1).substr(0, c.row.size()), c.row);
  }
  EXPECT_EQ(outside.boxes.prompts.back(), "Introduce Código del Valor");
  Update(
      "\xD1"
      "AC",
      4);
  Update("TEF", 5);
  const std::int32_t at_rest = hot.G.back(1, 2);
  Update(
      "\xD1"
      "AC",
      6);
  EXPECT_EQ(RowText(hot.G, 1), "NOMBRE              |6.00|09:30:05");
  EXPECT_EQ(hot.G.rows(), 2);
  EXPECT_EQ(hot.G.back(1, 2), at_rest);
}

TEST_F(HotTest, ItsLayoutIsKeptWhenTheUserDragsAColumnAndClosingHidesIt) {
  temp.Write("MC.CAM", "111111111111");
  hot.Show();
  EXPECT_EQ(RowText(hot.G, 0),
            "Instrumento|Anterior|Apertura|%D|Ultimo|Maximo|Minimo|Volumen|Hora");
  Type("TEF");
  EXPECT_EQ(temp.Read("HOT.POS"), "") << "that is no saving here";
  hot.G.set_width(8, 1500);
  hot.G.on_after_user_resize();
  hot.UserClose();
  EXPECT_TRUE(hot.loaded() && !hot.visible());
  charts::Hot next{{outside, dir, store, pipeline, config, FaseCierre}, ticks};
  next.Load();
  EXPECT_EQ(next.G.width(8), 1500);
}

}  // namespace

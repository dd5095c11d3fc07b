#include "charts/hot.h"

#include "base/ansi.h"
#include "views/fixture.h"

namespace {

using support::RowText;

class HotTest : public ViewTest {
 protected:
  HotTest() {
    pipeline.steps.ticks = [this](std::int16_t slot) { ticks.TickAppend(slot); };
    pipeline.steps.hot = [this](std::int16_t slot) {
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
  Update("I MCSC", 49.9996F);
  Update("I MCT1", 50.5F);
  EXPECT_EQ(parts(), "50.000 /4 50.500 /2 -3,000/4 ");
  Update("STSC", 1, 4000.4);
  Update("I MCSC", 1050.25F);
  Update("I MCT1", kNan);
  Update("STSCT2", 1, 1, 1);
  for (const int nobody : {-1, 0, 999}) hot.ActuaHot(static_cast<std::int16_t>(nobody));
  EXPECT_EQ(parts(), "1,050.250 /2  /2 /4 ");
}

TEST_F(HotTest, BeginsWithWhatIsKnownAndGoesOn) {
  for (const float value : {9000.0F, 9001.0F}) Update("I IB", value);
  Update("STSV", 1, 7);
  Update("I ETH2", 0);
  hot.Load();
  EXPECT_EQ(hot.LSV.caption(), "7 ");
  Update("I IB", 9002);
  Update("I TKUP", 8000);
  Update("I ETH2", 8500);
  Update("I MCSC", 52);
  const auto last = [](const charts::Chart& chart) {
    std::string text;
    for (int serie = 1; chart.Count(serie) > 0; ++serie) {
      const std::size_t count = chart.Count(serie);
      text += std::to_string(count) + ':' +
              std::to_string(static_cast<int>(chart.Value(count - 1, serie))) + ' ';
    }
    return text + chart.tool_tip();
  };
  EXPECT_EQ(last(hot.Gr1), "4:9002 1:8500 1:8000 IBEX 35");
  EXPECT_EQ(last(hot.Gr2), "1:52 %SALDO COMPRADOR");
  const auto& points = hot.Gr1.linea(0).puntos;
  ASSERT_EQ(points.size(), 4U);
  EXPECT_EQ(points[3].x - points[0].x, 4) << "seconds of the market";
}

TEST_F(HotTest, TheUserHoldsOneCodeAtATime) {
  struct Case {
    std::string_view typed, held, row;
  };
  const Case cases[]{
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
  temp.Write("MC.CAM", "000100011111");
  hot.Show();
  EXPECT_EQ(RowText(hot.G, 0), "Instrumento|Ultimo|Hora");
  Update("TEF", 3);
  Update("I IB", 9);
  for (const Case& c : cases) {
    Type(c.typed);
    EXPECT_EQ(base::AnsiToUtf8(hot.HotCodigos), c.held) << c.typed;
    EXPECT_EQ(hot.G.rows(), c.row.empty() ? 1 : 2) << c.typed;
    EXPECT_EQ(RowText(hot.G, 1).substr(0, c.row.size()), c.row);
  }
  const base::Color at_rest = hot.G.back_color();
  for (const float last : {4.0F, 6.0F})
    Update(
        "\xD1"
        "AC",
        last);
  EXPECT_EQ(RowText(hot.G, 1).substr(0, 25), "NOMBRE              |6.00");
  EXPECT_EQ(hot.G.back(1, 1), at_rest);
  EXPECT_EQ(temp.Read("HOT.POS"), "") << "that is no saving here";
  hot.G.on_after_user_resize();
  EXPECT_EQ(temp.Read("HOT.POS").size(), 14U);
}

}  // namespace

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "charts/graficos_abiertos.h"
#include "support/memory_platform.h"

namespace {

using State = platform::Window::State;

class GraficosTest : public testing::Test {
 protected:
  std::int16_t Know(std::string_view code, std::string_view name) {
    store::Instrumento record;
    record.Codigo.assign(code);
    record.Nombre.assign(name);
    record.Anterior = 1200;
    record.Apertura = 1195;
    return store.GuardarMaestro(record);
  }
  charts::Graficos& Open(std::int16_t slot) {
    desk.Abrir(slot);
    return last();
  }
  charts::Graficos& last() { return desk.at(desk.size() - 1); }
  void Quote(std::int16_t slot, float price) {
    store.GuardarCotizacion(slot,
                            {.Maximo = 1240, .Minimo = 1190.5F, .Ultimo = price, .Volumen = 12345});
    desk.GraficosVivo(slot);
  }
  static void Size(charts::Graficos& chart, int width, int height, State state = State::normal) {
    chart.Placed({0, 0, width + 90, height + 450}, state, width, height);
  }
  /// Width and height of the chart, and whether it is seen.
  static std::string Shape(const charts::Graficos& chart) {
    return std::to_string(chart.Gr1.rect().width) + "x" + std::to_string(chart.Gr1.rect().height) +
           (chart.Gr1.visible() ? "" : " hidden");
  }

  support::MemoryPlatform outside;
  support::TempDir temp;
  base::ProgramDir dir{temp.path()};
  store::InstrumentStore store;
  charts::TickFiles ticks{dir, store};
  std::int16_t FaseCierre = 0;
  charts::GraficosAbiertos desk{outside, store, ticks, FaseCierre};
  const std::int16_t tef = Know("TEF", "TELEF\xD3NICA\n"), dv = Know("DVEUR", "EURO");
};

TEST_F(GraficosTest, OpensWithTheNameOverItAndLivesOnQuotes) {
  const charts::Graficos& chart = Open(tef);
  EXPECT_EQ(chart.tag(), "G:TEF    ");
  EXPECT_EQ(outside.desktop().log, std::vector<std::string>{"shown TELEF\xC3\x93NICA "});
  EXPECT_EQ(chart.Gr1.decimals(), 2);
  EXPECT_EQ(Open(dv).Gr1.decimals(), 3);
  for (const int slot : {0, -1, 3}) desk.Abrir(static_cast<std::int16_t>(slot));
  ASSERT_EQ(desk.size(), 2U);

  store.MercadoFecha = 1000426;
  store.MercadoHora = 93000;
  Quote(tef, 1230);
  EXPECT_EQ(
      chart.caption(),
      "TELEF\xC3\x93NICA              1,230.00     2.50%      1,240.00     1,190.50     12,345");
  ASSERT_EQ(chart.Gr1.Count(), 1U);
  const auto now = chart.Gr1.Senalar(0);
  ASSERT_TRUE(now);
  EXPECT_EQ(now->record.apertura, 1195);
  EXPECT_EQ(now->record.cierre, 1230);
  EXPECT_EQ(now->record.fecha, 1000426);
  EXPECT_EQ(now->record.hora, 93000);
  EXPECT_EQ(last().Gr1.Count(), 0U);
}

TEST_F(GraficosTest, EveryWindowOnACodeLivesAndAClosedOneLeavesOnlyItsCode) {
  desk.Medias.Load();
  const charts::Graficos& first = Open(tef);
  Open(dv);
  charts::Graficos& third = Open(tef);
  EXPECT_EQ(desk.ChartCodes,
            (std::vector<store::Codigo>{store::Codigo("TEF"), store::Codigo("DVEUR")}));
  EXPECT_EQ(desk.ChartWindowIndex, (std::vector<std::int16_t>{3, 2}));
  Quote(tef, 1210);
  EXPECT_EQ(first.Gr1.Count(), 1U);
  third.UserClose();
  Quote(tef, 1211);
  EXPECT_EQ(first.Gr1.Count(), 2U);
  EXPECT_EQ(third.Gr1.Count(), 1U);
  outside.RunPosted();
  desk.at(0).UserClose();
  desk.at(0).UserClose();
  outside.RunPosted();
  Quote(tef, 1212);
  EXPECT_EQ(desk.ChartCodes.size(), 2U);
  EXPECT_EQ(outside.running_timers(), 0U);
}

TEST_F(GraficosTest, TakesAnyTypedCodeOfThreeCharacters) {
  struct Case {
    std::string_view typed, code;  // "" for none
  };
  for (const Case& each : std::vector<Case>{{"", ""},
                                            {"  A ", ""},
                                            {"\xC3\xB1\xC3\xB1", ""},
                                            {"tef", "TEF    "},
                                            {" ca\xC3\xB1 ", "CA\xC3\x91    "},
                                            {"ABCDEFGHI", "ABCDEFG"},
                                            {"a b", "A B    "},
                                            {"ABCDEF GHI", "ABCDEF "},
                                            {"m:5", "M:5    "},
                                            {"../..//x", "../..//"}}) {
    outside.boxes.line = each.typed;
    const std::size_t before = desk.size();
    ASSERT_EQ(desk.Pedir(), !each.code.empty()) << each.typed;
    ASSERT_EQ(desk.size(), before + (each.code.empty() ? 0 : 1)) << each.typed;
    if (each.code.empty()) continue;
    EXPECT_EQ(last().tag(), "G:" + std::string(each.code));
    EXPECT_EQ(last().caption(), base::TrimEnd(each.code));
    EXPECT_EQ(last().Gr1.series(), 1U) << each.typed;
  }
  EXPECT_EQ(outside.boxes.prompts.back(), "Codigo del Valor a graficar: ");
  Quote(tef, 1230);
  for (std::size_t i = 0; i < desk.size(); ++i) {
    EXPECT_EQ(desk.at(i).Gr1.Count(), desk.at(i).tag() == "G:TEF    " ? 1U : 0U);
  }
}

TEST_F(GraficosTest, FollowsItsWindowWhenThatHasKeptItsSizeForAWhile) {
  charts::Graficos& chart = Open(tef);
  EXPECT_EQ(Shape(chart), "8900x5700");
  Size(chart, 8910, 5550);
  EXPECT_EQ(Shape(chart), "8810x5250");
  outside.avanzar(1500);
  Size(chart, 5000, 4000);
  outside.avanzar(600);
  Size(chart, 6000, 4000);
  outside.avanzar(3300);
  EXPECT_EQ(Shape(chart), "8810x5250 hidden");
  outside.avanzar(700);
  EXPECT_EQ(Shape(chart), "5900x3700");
  Size(chart, 50, 20, State::minimized);
  outside.avanzar(4000);
  EXPECT_EQ(Shape(chart), "0x0");
}

TEST_F(GraficosTest, MovesItsWidthToAndFroWhenItsBarComesAndGoes) {
  charts::Graficos& chart = Open(tef);
  Size(chart, 8910, 5550);
  chart.Gr1.on_bar_shown();
  EXPECT_EQ(chart.InternalResize, 1);
  EXPECT_EQ(chart.rect().width, 9000);
  int widest = 0;
  outside.Post([&] { widest = chart.rect().width; });
  chart.Gr1.on_bar_hidden();
  chart.Gr1.on_bar_shown();
  outside.RunPosted();
  EXPECT_EQ(widest, 9010);
  EXPECT_EQ(chart.rect().width, 9000);
  EXPECT_EQ(chart.InternalResize, 0);
  EXPECT_EQ(Shape(chart), "8810x5250");
  outside.avanzar(4000);
  EXPECT_EQ(Shape(chart), "8810x4750");

  Size(chart, 12000, 8000, State::maximized);
  chart.Gr1.on_command(charts::Chart::kAjustar);
  outside.RunPosted();
  EXPECT_EQ(chart.rect().width, 12090);
  outside.avanzar(4000);
  EXPECT_EQ(Shape(chart), "11900x7700");
  // The same size once more is the user's doing by now.
  Size(chart, 8910, 5550);
  outside.avanzar(4000);
  Size(chart, 12000, 8000, State::maximized);
  EXPECT_EQ(Shape(chart), "8810x5250 hidden");

  // Closed at either step.
  chart.Gr1.on_bar_shown();
  chart.UserClose();
  outside.RunPosted();
  charts::Graficos& other = Open(tef);
  other.Gr1.on_bar_shown();
  outside.Post([&] { other.UserClose(); });
  outside.RunPosted();
  EXPECT_EQ(desk.size(), 0U);
}

TEST_F(GraficosTest, AddsTheAverageThatTheDialogNames) {
  charts::Graficos& chart = Open(tef);
  for (int n = 0; n < 5; ++n) Quote(tef, 1200 + static_cast<float>(n));
  const auto ask = [&](std::string_view text, bool accept = true) {
    chart.Gr1.on_command(charts::Chart::kMedia);
    desk.Medias.Text1.set_text(text);
    (accept ? desk.Medias.Command1 : desk.Medias.Command2).Click();
    return chart.Gr1.lineas() - chart.Gr1.series();
  };
  for (const std::string_view none : {"", "0", "-3", "0.9", "veinte", "10001", "1e300", "1e999"}) {
    EXPECT_EQ(ask(none), 0U) << none;
  }
  EXPECT_EQ(ask("2", false), 0U);
  EXPECT_EQ(ask("2.9"), 1U);
  EXPECT_EQ(chart.Gr1.linea(1).puntos.size(), 4U);

  chart.Gr1.on_command(charts::Chart::kMedia);
  chart.UserClose();
  outside.RunPosted();
  desk.Medias.Text1.set_text("3");
  desk.Medias.Command1.Click();
  EXPECT_FALSE(desk.Medias.visible());
}

}  // namespace

#include "store/update_pipeline.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "store/market_class.h"

namespace {

using store::Clase;
using store::Instrumento;

TEST(MarketClass, IsTheFirstTestThatHolds) {
  struct Case {
    std::string_view code, name;
    Clase quote, load;
  };
  const Case cases[]{
      {"TEF", "TELEFONICA", Clase::Continuo, Clase::Continuo},
      {"TEF  99", "X", Clase::Continuo, Clase::Continuo},
      {"TEF.D", "X", Clase::Continuo, Clase::Continuo},
      {"DV ", "X", Clase::Continuo, Clase::Continuo},
      {"I IB", "IBEX 35", Clase::Indices, Clase::Indices},
      {"I MCSC", "ST SALDO", Clase::Estadisticas, Clase::Estadisticas},
      {"STSV", "X", Clase::Estadisticas, Clase::Estadisticas},
      {"MFXIB1", "ST FUTURO", Clase::Estadisticas, Clase::Estadisticas},
      {"MFXIB1", "X", Clase::Futuros, Clase::Futuros},
      {"PDIBXC", "X", Clase::Futuros, Clase::Futuros},
      {"CMXIB1", "X", Clase::ninguna, Clase::Futuros},
      {"DVUSD", "X", Clase::Divisas, Clase::Divisas},
      {".CTEF1", "X", Clase::Opciones, Clase::Opciones},
      {".PTEF1", "X", Clase::Opciones, Clase::Opciones},
      {"ABCDEFG", "X", Clase::ninguna, Clase::ninguna},
  };
  for (const Case& c : cases) {
    Instrumento record;
    record.Codigo.assign(c.code);
    record.Nombre.assign(c.name);
    EXPECT_EQ(store::ClaseDe(record, false), c.quote) << c.code;
    EXPECT_EQ(store::ClaseDe(record, true), c.load) << c.code;
  }
}

class Pipeline : public testing::Test {
 protected:
  Pipeline() {
    const auto note = [this](std::string_view name) {
      return [this, name](std::int16_t slot) {
        log += std::string(name) + std::to_string(slot) + ' ';
      };
    };
    pipeline.steps = {.tickets = note("tickets"),
                      .alarmas = note("alarmas"),
                      .barras = note("barras"),
                      .graficos = note("graficos"),
                      .ticks = note("ticks"),
                      .cartera = note("cartera"),
                      .resumen = note("resumen")};
    pipeline.views = {.Continuo_negoti = note("negoti"),
                      .Continuo_negotii = note("negotii"),
                      .Indices = note("indices"),
                      .Estadisticas = nullptr,
                      .Futuros = note("futuros"),
                      .Divisas = nullptr,
                      .Opciones = nullptr};
  }

  std::int16_t Add(std::string_view code, std::string_view name, float previous = 0,
                   float last = 0) {
    Instrumento record;
    record.Codigo.assign(code);
    record.Nombre.assign(name);
    record.Anterior = previous;
    record.Ultimo = last;
    return store.GuardarMaestro(record);
  }

  store::InstrumentStore store;
  platform::Ticker tape;
  platform::CheckBox ticker_on;
  store::UpdatePipeline pipeline{store, tape, ticker_on};
  std::string log;
};

TEST_F(Pipeline, RunsItsStepsInOneOrder) {
  Add("TEF", "TELEFONICA");
  pipeline.RefrescarInstrumento(1);
  EXPECT_EQ(log, "tickets1 alarmas1 barras1 graficos1 ticks1 cartera1 resumen1 negoti1 ");
  log.clear();
  pipeline.RefrescarInstrumentoCarga(1);
  EXPECT_EQ(log, "tickets1 alarmas1 barras1 ticks1 resumen1 negotii1 ");
  log.clear();
  pipeline.steps = {};
  Add("CMXIB1", "FUTURO");
  Add("STSV", "NADIE MIRA");
  for (std::int16_t slot = 2; slot <= 3; ++slot) {
    pipeline.RefrescarInstrumento(slot);
    pipeline.RefrescarInstrumentoCarga(slot);
  }
  EXPECT_EQ(log, "futuros2 ");
}

TEST_F(Pipeline, LetsNobodyThroughWithoutAProperName) {
  for (const std::string_view name : {"", "/X", "*X", "0X", "\xC1X"}) Add(name, name);
  for (std::int16_t slot = 0; slot <= 6; ++slot) pipeline.RefrescarInstrumento(slot);
  EXPECT_EQ(log.substr(0, 8), "tickets4");
  EXPECT_NE(log.find("tickets5"), std::string::npos);
  EXPECT_EQ(log.find("tickets6"), std::string::npos);
}

TEST_F(Pipeline, TheTapeShowsIndicesInTheColourOfTheirDay) {
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  struct Case {
    std::string_view code;
    float previous, last;
    std::string_view text;
    base::Color color;
  };
  const Case cases[]{
      {"I IB", 10000, 12345.5F, "\xC3\x8DNDICE 12,345.50 23.46%", base::palette::kLightGreen},
      {"PDIBXC", 100, 99.5F, "\xC3\x8DNDICE 99.50 -0.50%", base::palette::kLightRed},
      {"I GAL", 7, 7, "\xC3\x8DNDICE 7.00 0.00%", base::palette::kBrightWhite},
      {"I NEW", 0, 7, "\xC3\x8DNDICE 7.00 0.00%", base::palette::kLightGreen},
  };
  for (const Case& c : cases) {
    const std::int16_t slot = Add(c.code, "\xCDNDICE", c.previous, c.last);
    ticker_on.set_value(0);
    pipeline.RefrescarInstrumento(slot);
    EXPECT_TRUE(tape.items().empty());
    ticker_on.set_value(1);
    pipeline.RefrescarInstrumento(slot);
    pipeline.RefrescarInstrumentoCarga(slot);
    ASSERT_EQ(tape.items().size(), 1U) << c.code;
    EXPECT_EQ(tape.items()[0].text, c.text);
    EXPECT_EQ(tape.items()[0].color, c.color);
    EXPECT_EQ(tape.items()[0].spacing, 80);
    // What can't be compared leaves the tape.
    Add(c.code, "\xCDNDICE", c.previous, kNan);
    pipeline.RefrescarInstrumento(slot);
    EXPECT_TRUE(tape.items().empty());
  }
  pipeline.RefrescarInstrumento(Add("TEF", "TELEFONICA", 1, 2));
  pipeline.RefrescarInstrumento(Add("PDIBXD", "OTRO FUTURO", 1, 2));
  EXPECT_TRUE(tape.items().empty());
}

}  // namespace

#include "store/update_pipeline.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "store/market_class.h"

namespace {

using store::Clase;
using store::Instrumento;

TEST(MarketClass, IsTheFirstTestThatHolds) {
  const std::tuple<std::string_view, std::string_view, Clase, Clase> cases[]{
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
  for (const auto& [code, name, quote, load] : cases) {
    Instrumento record;
    record.Codigo.assign(code);
    record.Nombre.assign(name);
    EXPECT_EQ(store::ClaseDe(record, false), quote) << code;
    EXPECT_EQ(store::ClaseDe(record, true), load) << code;
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
    pipeline.steps = {note("tickets"), note("alarmas"), note("barras"), note("graficos"),
                      note("ticks"),   note("cartera"), note("hot")};
    pipeline.views = {note("negoti"),  note("negotii"), note("indices"), nullptr,
                      note("futuros"), nullptr,         nullptr};
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
  EXPECT_EQ(log, "tickets1 alarmas1 barras1 graficos1 ticks1 cartera1 hot1 negoti1 ");
  log.clear();
  pipeline.RefrescarInstrumentoCarga(1);
  EXPECT_EQ(log, "tickets1 alarmas1 barras1 ticks1 hot1 negotii1 ");
  log.clear();
  pipeline.steps = {};
  Add("CMXIB1", "FUTURO");
  pipeline.RefrescarInstrumento(2);
  pipeline.RefrescarInstrumentoCarga(2);
  pipeline.RefrescarInstrumento(Add("STSV", "NADIE MIRA"));
  EXPECT_EQ(log, "futuros2 ");
}

TEST_F(Pipeline, LetsNobodyThroughWithoutAProperName) {
  std::string shown;
  pipeline.steps = {};
  pipeline.steps.tickets = [&](std::int16_t slot) { shown += std::to_string(slot); };
  for (const std::string_view name : {"", "/X", "*X", "0X", "\xC1X"}) Add(name, name);
  for (std::int16_t slot = 0; slot <= 6; ++slot) pipeline.RefrescarInstrumento(slot);
  EXPECT_EQ(shown, "45");
}

TEST_F(Pipeline, TheTapeShowsIndicesInTheColourOfTheirDay) {
  pipeline.RefrescarInstrumento(Add("I IB", "\xCDNDICE", 1, 2));
  EXPECT_TRUE(tape.items().empty());
  ticker_on.set_value(1);
  const std::tuple<std::string_view, float, float, std::string> cases[]{
      {"I IB", 10000, 12345.5F, "ÍNDICE 12,345.50 23.46%/10"},
      {"I IB", 100, 99.5F, "ÍNDICE 99.50 -0.50%/12"},
      {"I IB", 7, 7, "ÍNDICE 7.00 0.00%/15"},
      {"I IB", 0, 7, "ÍNDICE 7.00 0.00%/10"},
      {"TEF", 1, 2, "ÍNDICE 7.00 0.00%/10"},
      {"PDIBXD", 1, 2, "ÍNDICE 7.00 0.00%/10"},
      {"I IB", 0, std::numeric_limits<float>::quiet_NaN(), ""},  // it can't be compared
      {"PDIBXC", 2, 1, "ÍNDICE 1.00 -50.00%/12"},
  };
  for (const auto& [code, previous, last, expected] : cases) {
    const std::int16_t slot = Add(code, "\xCDNDICE", previous, last);
    pipeline.RefrescarInstrumento(slot);
    pipeline.RefrescarInstrumentoCarga(slot);
    std::string shown;
    for (const auto& item : tape.items()) shown += item.text + '/' + std::to_string(item.color);
    EXPECT_EQ(shown, expected) << code;
  }
}

}  // namespace

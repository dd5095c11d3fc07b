#include "charts/replay.h"

#include <gtest/gtest.h>

#include "base/bytes.h"
#include "support/temp_dir.h"

namespace {

using namespace charts;  // NOLINT

TEST(Replay, GivesTheChartOnePriceARecordAndTheVolumeTwice) {
  const store::Codigo code("TEF");
  const support::TempDir dir;
  const base::ProgramDir program(dir.path());
  const store::InstrumentStore store;
  const TickFiles ticks(program, store);
  Chart chart;
  chart.AddSerie(code);
  chart.Clean();
  ReplayTicks(ticks, code, chart);
  EXPECT_FALSE(chart.dirty());  // nothing to show

  std::string file;
  for (const float price : {19.5F, 9.F, 20.F}) {
    for (const float field : {price, price * 100, 93015.F, 1000426.F}) {
      base::AppendField(file, field);
    }
  }
  dir.Write("Ticks/" + RutaTick(code), file);
  ReplayTicks(ticks, code, chart);
  EXPECT_TRUE(chart.dirty());
  ASSERT_EQ(chart.Count(), 2u);
  EXPECT_TRUE(chart.Value(0) == 19.5F && chart.Value(1) == 20);
  const auto last = chart.Senalar(1e9);
  ASSERT_TRUE(last);
  const Registro& record = last->record;
  EXPECT_TRUE(record.apertura == 20 && record.cierre == 20 && record.maximo == 20 &&
              record.minimo == 20 && record.volumen == 2000 && record.efectivo == 2000 &&
              record.fecha == 1000426 && record.hora == 93015);
}

}  // namespace

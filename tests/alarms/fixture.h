#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "alarms/a_precio.h"
#include "alarms/evaluate.h"
#include "support/memory_platform.h"

/// The alarms of a program with all their windows.
class AlarmTest : public testing::Test {
 protected:
  static alarms::Alarma Alarm(std::string_view code, float value, int condition = 1, int kind = 1,
                              std::string order = "vender") {
    return {store::Codigo(code),
            value,
            value,
            static_cast<std::int16_t>(kind),
            static_cast<std::int16_t>(condition),
            std::move(order)};
  }

  static store::Instrumento Quote(std::string_view code, float last, float volume = 0) {
    store::Instrumento record;
    record.Codigo = store::Codigo(code);
    record.Nombre = base::FixedText<20>::FromUtf8("CAÑAS");
    record.Hora = 93005;
    record.Ultimo = last;
    record.Volumen = volume;
    return record;
  }

  void Define(const alarms::Alarma& alarm) {
    ASSERT_TRUE(table.Agregar(alarm));
    form.Rellenar();
  }
  void Arrive(const store::Instrumento& record) {
    alarms::EvaluarAlarmas(record, table, form, fired);
  }

  /// The lines of a list, each with a "|" at its end.
  static std::string Lines(const platform::ListBox& list) {
    std::string text;
    for (const std::string& line : list.items()) text += line + '|';
    return text;
  }

  support::TempDir dir;
  support::MemoryPlatform outside;
  base::ProgramDir program{dir.path()};
  std::int16_t fase_cierre = 0;
  alarms::AlarmTable table{program};
  alarms::FormAlarm form{outside, table, fase_cierre};
  alarms::ListAlarm fired{outside, fase_cierre};
  store::InstrumentStore store;
  alarms::APrecio dialog{outside, store, table, form};
};

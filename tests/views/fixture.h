#pragma once

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <string_view>

#include "base/program_dir.h"
#include "support/memory_platform.h"
#include "views/tickets.h"

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();

/// What every window of the market stands on, with the tape and the tickets of a program.
class ViewTest : public testing::Test {
 protected:
  static store::Instrumento Share(std::string_view code, std::string_view name, float last = 10) {
    store::Instrumento record;
    record.Codigo.assign(code);
    record.Nombre.assign(name);
    record.Ultimo = last;
    return record;
  }
  /// Puts the share into the table; its slot.
  std::int16_t Know(std::string_view code, std::string_view name) {
    return store.GuardarMaestro(Share(code, name));
  }

  support::MemoryPlatform outside;
  support::TempDir temp;
  base::ProgramDir dir{temp.path()};
  store::InstrumentStore store;
  platform::Ticker strip;
  platform::CheckBox ticker_on;
  store::UpdatePipeline pipeline{store, strip, ticker_on};
  std::int16_t FaseCierre = 0;
  views::Form2 tape{outside, FaseCierre};
};

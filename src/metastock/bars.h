#pragma once

#include <cstdint>
#include <functional>

#include "metastock/stores.h"
#include "platform/platform.h"
#include "store/instrument_store.h"

namespace metastock {

/// Turns quotes and rows of history into bars of the data files: the last bar of a file is written
/// anew, or one is added. Writes bars and the number of the last one, nothing else; what can't be
/// written is lost without a word. Nothing is written to record 0 or below, nor while a directory
/// is empty. Numbers are float32 at each step. What the constructor takes outlives it.
class Bars {
 public:
  Bars(Stores& stores, const store::InstrumentStore& instruments, platform::Platform& platform);

  /// A quote has changed an intraday bar, and its file where there is one.
  std::function<void()> on_live;

  /// Feeds both stores from an instrument that has been updated: every selected entry of its code.
  /// A daily entry drives the intraday entry of the same number as well, whatever its code. Costs
  /// next to nothing for an instrument without any.
  void ActualizarBarras(std::int16_t slot);

  /// Entries from 1 to Stores::kMaxEntries; others do nothing. The first two change `Open`, `High`,
  /// `Low` and `Volume` of the caller's bar.
  void UpdateLiveIntraday(int entry, Bar& bar);
  void UpdateHistoricIntraday(int entry, Bar& bar);
  void UpdateDaily(int entry, const Bar& bar);

 private:
  [[nodiscard]] Bar BarOf(const store::Instrumento& instrument) const;
  [[nodiscard]] float DateWithoutFeed() const;

  Stores& stores_;
  const store::InstrumentStore& instruments_;
  platform::Platform& platform_;
};

}  // namespace metastock

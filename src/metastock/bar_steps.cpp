#include "metastock/bar_steps.h"

#include <cmath>

#include "metastock/stores.h"

namespace metastock {
namespace {

// What came as infinity or NaN goes on as it is; what becomes infinite on the way doesn't fit.
void Add(float a, float b, float& sum) {
  const float added = a + b;
  const bool overflows = std::isinf(added) && std::isfinite(a) && std::isfinite(b);
  if (!overflows) sum = added;
}

void BeginVolume(BarState& state, float volume) {
  if (state.VolumeBase == 0 || state.VolumeNow == 0) state.VolumeBase = state.VolumeNow = volume;
}

void FillZeros(BarState& state, const Bar& prices) {
  if (state.High == 0) state.High = prices.High;
  if (state.Low == 0) state.Low = prices.Low;
  if (state.Close == 0) state.Close = prices.Close;
  if (state.Open == 0) state.Open = prices.Open;
}

// A slot in which nothing moved is followed by no other at the same price.
bool IsFlatAt(const BarState& state, float price) {
  return state.High == state.Low && state.Close == price;
}

void Begin(BarState& state, std::int16_t slot, const Bar& prices) {
  state.Slot = slot;
  state.Time = prices.Time;
  state.Close = prices.Close;
  state.High = prices.High;
  state.Low = prices.Low;
  state.Open = prices.Open;
}

void TakeOpen(BarState& state, Bar& bar) {
  if (state.Open > state.High || state.Open < state.Low) state.Open = bar.Close;
  bar.Open = state.Open;
}

void Widen(BarState& state, float high, float low) {
  if (state.High < high) state.High = high;
  if (state.Low > low) state.Low = low;
}

}  // namespace

Change TakeQuote(BarState& state, std::int16_t period, Bar& bar) {
  if (LacksPrices(bar)) return Change::none;
  if (bar.Date > state.Date) {
    state.Slot = 0;
    state.Date = bar.Date;
  }
  const std::int16_t slot = SlotOf(bar.Time, period);
  BeginVolume(state, bar.Volume);
  state.VolumeNow = bar.Volume;
  Bar prices = bar;
  prices.Open = prices.High = prices.Low = bar.Close;
  FillZeros(state, prices);
  const bool fresh = state.Slot != slot;
  if (fresh) {
    if (IsFlatAt(state, bar.Close)) return Change::none;
    Begin(state, slot, prices);
    state.VolumeBase = bar.Volume;
  }
  Add(state.VolumeNow, -state.VolumeBase, bar.Volume);
  TakeOpen(state, bar);
  Widen(state, bar.Close, bar.Close);
  // No bar reaches beyond the day.
  if (state.Low < bar.Low) state.Low = bar.Close;
  if (state.High > bar.High) state.High = bar.Close;
  bar.Low = state.Low;
  bar.High = state.High;
  return fresh ? Change::followed : Change::rewritten;
}

Change TakeRow(BarState& state, std::int16_t period, Bar& bar) {
  MendLow(bar);
  if (LacksPrices(bar) || bar.Date < state.Date) return Change::none;
  if (bar.Date > state.Date) {
    state.Slot = 0;
    state.Date = bar.Date;
    state.Time = 0;
  }
  if (state.Time > bar.Time && bar.Date == state.Date) return Change::none;
  const std::int16_t slot = SlotOf(bar.Time, period);
  BeginVolume(state, bar.Volume);
  Add(state.VolumeNow, bar.Volume, state.VolumeNow);
  FillZeros(state, bar);
  const bool fresh = state.Slot != slot;
  if (fresh) {
    if (IsFlatAt(state, bar.Close)) return Change::none;
    Begin(state, slot, bar);
    state.VolumeBase = bar.Volume;
    state.VolumeNow = 0;
  }
  // The base counts again with every row of a slot: so the package's files have always been fed.
  Add(state.VolumeNow, state.VolumeBase, bar.Volume);
  Add(state.VolumeNow, state.VolumeBase, state.VolumeNow);
  TakeOpen(state, bar);
  Widen(state, bar.High, bar.Low);
  bar.Low = state.Low;
  bar.High = state.High;
  if (bar.Open == 0) bar.Open = bar.Close;
  return fresh ? Change::followed : Change::rewritten;
}

}  // namespace metastock

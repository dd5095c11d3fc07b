#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

#include "demo/instrument.h"

namespace demo {

/// What a day brought a share, in units of its Instrument; all 0 when it didn't trade.
struct DayBar {
  std::int64_t open = 0, high = 0, low = 0, close = 0, volume = 0;
};

[[nodiscard]] inline DayBar DayOf(const Instrument& state) {
  if (!state.is_open()) return {};
  return {state.open, state.high, state.low, state.last, state.volume};
}

/// How the shares went on the days that are over; the last kMostDays of them.
class PastDays {
 public:
  static constexpr std::size_t kMostDays = 250;
  struct Day {
    std::chrono::sys_days day;
    std::vector<DayBar> bars;  // by share
  };

  void Add(std::chrono::sys_days day, std::span<const Instrument> shares) {
    if (days_.size() == kMostDays) days_.pop_front();
    Day& added = days_.emplace_back(Day{day, {}});
    added.bars.reserve(shares.size());
    for (const Instrument& share : shares) added.bars.push_back(DayOf(share));
  }
  /// In order of time.
  [[nodiscard]] const std::deque<Day>& days() const { return days_; }

 private:
  std::deque<Day> days_;
};

}  // namespace demo

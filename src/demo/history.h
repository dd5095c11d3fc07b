#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "demo/market.h"
#include "demo/past_days.h"
#include "demo/random.h"

namespace demo {

/// What a share did over a day or a part of one.
struct HistoryBar {
  int date = 0;  // with the years from 1900
  int time = 0;  // HHMMSS at which the part begins, the close for a day
  DayBar bar;
};

/// The past of each share: days from the beginning of 1999 on, parts of days for the last kDays.
/// Days before the market began are made up, the same for a seed at each call, and lead to the
/// prices with which it began; days since are those that it had. How a day went within itself is
/// made up, between its own open, high, low and close. Holds nothing: all is made when it is asked
/// for. The market outlives it.
class History {
 public:
  static constexpr std::size_t kDays = 30;

  History(const Market& market, std::uint32_t seed) : market_(market), seed_(seed) {}

  [[nodiscard]] const Market& market() const { return market_; }

  /// The days that are over, in order of time; none for a slot without a share.
  [[nodiscard]] std::vector<HistoryBar> Days(std::size_t slot) const;
  /// The parts that are over, today's too, in order of time.
  [[nodiscard]] std::vector<HistoryBar> Parts(std::size_t slot) const;
  /// How long a part is: 5 for what trades much, 10 for the others.
  [[nodiscard]] int MinutesOf(std::size_t slot) const;

 private:
  struct Day {
    std::chrono::sys_days day;
    DayBar bar;
  };

  [[nodiscard]] std::vector<Day> AllDays(std::size_t slot) const;
  [[nodiscard]] std::vector<Day> MadeUpDays(const Share& share) const;
  void Split(const Day& day, std::size_t slot, int until, std::vector<HistoryBar>& parts) const;
  [[nodiscard]] Random Source(std::size_t slot, std::chrono::sys_days day) const;

  const Market& market_;
  std::uint32_t seed_;
};

}  // namespace demo

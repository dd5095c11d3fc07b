#pragma once

#include <cstdint>

#include "demo/catalogue.h"
#include "demo/instrument.h"
#include "demo/share.h"

namespace demo {

/// The balances of the whole market since the start of the day: what buyers and what sellers moved,
/// in all trades and in the large ones, and how many shares rise and fall.
class Statistics {
 public:
  /// A share joins, unchanged.
  void Join() { ++equal_; }
  void StartDay();
  void Add(const Execution& trade);
  /// A share's price stood to its previous close as `before` (-1 below, 0, 1 above), now as `now`.
  void Turn(int before, int now);

  /// Writes a figure into its instrument. False, with nothing written, when that brings nothing new
  /// or the figure isn't above 0, which no quote can tell.
  [[nodiscard]] bool Publish(catalogue::Figure figure, Instrument& state, int now) const;

 private:
  struct Total {
    std::int64_t volume = 0, cash = 0;
  };

  [[nodiscard]] Total TotalOf(catalogue::Figure figure) const;
  [[nodiscard]] std::int64_t ValueOf(catalogue::Figure figure) const;
  [[nodiscard]] int& CountOf(int direction);

  Total bought_, sold_, bought_large_, sold_large_;
  std::int64_t trades_ = 0;
  int rising_ = 0, falling_ = 0, equal_ = 0;
};

}  // namespace demo

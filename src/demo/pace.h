#pragma once

#include <cstdint>

#include "demo/feed_options.h"
#include "demo/random.h"
#include "demo/session_clock.h"

namespace demo {

/// How much happens in each step of the clock: an uneven flow of the wanted mean, faster after the
/// opening and before the close, and rushes of some hundreds of trades now and then.
class Pace {
 public:
  explicit Pace(const FeedOptions& options);

  struct Due {
    int trades = 0;     // of shares, while the session is open
    int prices = 0;     // of all that only follows
    bool news = false;  // a rush begins
  };
  [[nodiscard]] Due Step(const SessionClock& clock, bool new_second, Random& random);

 private:
  [[nodiscard]] int Haste(const SessionClock& clock) const;

  int trades_per_second_, prices_per_second_;
  bool bursts_;
  int rhythm_ = 1000;                               // thousandths of the mean, changes each second
  std::int64_t owed_trades_ = 0, owed_prices_ = 0;  // in millionths
  int rush_ = 0;                                    // trades that are left of it
};

}  // namespace demo

#pragma once

#include <cstdint>

#include "demo/session_clock.h"

namespace demo {

/// How the simulated market behaves.
struct FeedOptions {
  std::uint32_t seed = 1;
  int quotes_per_second = 40;  // mean over a calm minute, 0 for a market in which nothing happens
  int extra_instruments = 0;   // further shares for load tests, up to 4800
  bool bursts = true;          // rushes at the opening, at the close and now and then
  bool trades = true;          // the trades behind the quotes are told as well
  bool notices = false;        // one notice a day, which halts a terminal until it is answered
  int start_second = SessionClock::kFirst;  // time of day at the start, in seconds
};

}  // namespace demo

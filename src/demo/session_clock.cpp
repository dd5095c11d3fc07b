#include "demo/session_clock.h"

#include <algorithm>

namespace demo {
namespace {

using std::chrono::days;
using std::chrono::weekday;

}  // namespace

int DateOf(std::chrono::sys_days day) {
  const std::chrono::year_month_day date(day);
  return (static_cast<int>(date.year()) - 1900) * 10000 +
         static_cast<int>(static_cast<unsigned>(date.month()) * 100 +
                          static_cast<unsigned>(date.day()));
}

SessionClock::SessionClock(int second)
    : second_(std::clamp(second, 8 * 3600 + 1, kLast - 60)), day_(kFirstDay) {}

SessionClock::Passed SessionClock::Step() {
  ms_ += kStepMs;
  if (ms_ < 1000) return {};
  ms_ = 0;
  if (++second_ < kLast) return {.second = true};
  NextDay();
  return {.second = true, .day = true};
}

void SessionClock::NextDay() {
  second_ = kFirst;
  day_ += weekday(day_) == std::chrono::Friday ? days(3) : days(1);
}

}  // namespace demo

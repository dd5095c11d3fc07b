#pragma once

#include <chrono>

namespace demo {

/// Second of the day as the number HHMMSS, and back.
[[nodiscard]] constexpr int TimeOf(int second) {
  return second / 3600 * 10000 + second / 60 % 60 * 100 + second % 60;
}
[[nodiscard]] constexpr int SecondOf(int time) {
  return time / 10000 * 3600 + time / 100 % 100 * 60 + time % 100;
}

/// A day as the number with the years from 1900: 991231, 1000517.
[[nodiscard]] int DateOf(std::chrono::sys_days day);

/// Time of the market's day, in steps of 20 ms. Seconds count from midnight. The first day is a
/// Wednesday in May 2000; some minutes after the close the clock goes on shortly before the next
/// weekday's opening. Terminals take no records dated later than the end of 2019.
class SessionClock {
 public:
  static constexpr std::chrono::sys_days kFirstDay = std::chrono::year(2000) / 5 / 17;
  static constexpr int kStepMs = 20;
  static constexpr int kFirst = (8 * 60 + 59) * 60 + 40;  // where each day begins
  static constexpr int kOpening = 9 * 3600;
  static constexpr int kClose = (17 * 60 + 30) * 60;
  static constexpr int kLast = (17 * 60 + 36) * 60;  // where each day ends

  /// Starts at `second`, brought between 08:00:01 and 17:35:00.
  explicit SessionClock(int second);

  struct Passed {
    bool second = false;  // a new second has begun
    bool day = false;     // and with it a new day
  };
  Passed Step();

  [[nodiscard]] std::chrono::sys_days day() const { return day_; }
  [[nodiscard]] int second() const { return second_; }
  [[nodiscard]] bool is_open() const { return second_ >= kOpening && second_ < kClose; }
  /// The time as the number HHMMSS.
  [[nodiscard]] int time() const { return TimeOf(second_); }
  [[nodiscard]] int date() const { return DateOf(day_); }

 private:
  void NextDay();

  int second_;
  int ms_ = 0;
  std::chrono::sys_days day_;
};

}  // namespace demo

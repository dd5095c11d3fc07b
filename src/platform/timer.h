#pragma once

#include <functional>
#include <memory>

#include "platform/ports.h"

namespace platform {

class Platform;

/// A repeating timer of a window. Ticks come only from the event loop, never inside a handler of
/// the same timer: one that comes while it runs is dropped. Interval 0 never fires.
class Timer {
 public:
  Timer(Platform& platform, int interval_ms, bool enabled);

  std::function<void()> on_tick;

  [[nodiscard]] int interval() const { return interval_; }
  /// 0 to 65535 ms; other values are refused. Starts the interval anew.
  bool set_interval(int ms);
  [[nodiscard]] bool enabled() const { return enabled_; }
  /// Starts the interval anew where it changes.
  void set_enabled(bool enabled);

 private:
  void Apply();
  void Tick();

  int interval_;
  bool enabled_;
  bool ticking_ = false;
  std::unique_ptr<TimerPort> port_;
};

}  // namespace platform

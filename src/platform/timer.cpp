#include "platform/timer.h"

#include "platform/platform.h"

namespace platform {

namespace {

bool IsInterval(int ms) { return ms >= 0 && ms <= 65535; }

}  // namespace

Timer::Timer(Platform& platform, int interval_ms, bool enabled)
    : interval_(IsInterval(interval_ms) ? interval_ms : 0),
      enabled_(enabled),
      port_(platform.MakeTimer([this] { Tick(); })) {
  Apply();
}

bool Timer::set_interval(int ms) {
  if (!IsInterval(ms)) return false;
  interval_ = ms;
  Apply();
  return true;
}

void Timer::set_enabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Apply();
}

void Timer::Apply() {
  if (enabled_ && interval_ > 0) {
    port_->Start(interval_);
  } else {
    port_->Stop();
  }
}

void Timer::Tick() {
  // A modal box inside the handler lets events run.
  if (ticking_) return;
  ticking_ = true;
  if (on_tick) on_tick();
  ticking_ = false;
}

}  // namespace platform

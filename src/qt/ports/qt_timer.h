#pragma once

#include <functional>

#include <QTimer>

#include "platform/ports.h"

namespace qt {

/// Exact to the millisecond where the period is short; longer ones may join other wake-ups of the
/// system within a twentieth of the period.
class QtTimer : public platform::TimerPort {
 public:
  explicit QtTimer(std::function<void()> tick);

  void Start(int ms) override;
  void Stop() override { timer_.stop(); }

 private:
  QTimer timer_;
};

}  // namespace qt

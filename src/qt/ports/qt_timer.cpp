#include "qt/ports/qt_timer.h"

#include <utility>

namespace qt {

QtTimer::QtTimer(std::function<void()> tick) {
  QObject::connect(&timer_, &QTimer::timeout, std::move(tick));
}

void QtTimer::Start(int ms) {
  constexpr int kShort = 50;
  timer_.setTimerType(ms <= kShort ? Qt::PreciseTimer : Qt::CoarseTimer);
  timer_.start(ms);
}

}  // namespace qt

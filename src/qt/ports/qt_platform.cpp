#include "qt/ports/qt_platform.h"

#include <ctime>
#include <utility>

#include "qt/ports/qt_timer.h"
#include "qt/ports/shipped_manual.h"

namespace qt {

QtPlatform::QtPlatform(const Looks& looks, Resolver resolve)
    : resolve_(std::move(resolve)),
      desktop_(looks, windows),
      other_windows_(MakeOtherWindows()),
      manual_(ShippedManual()) {}

std::unique_ptr<platform::Socket> QtPlatform::MakeSocket(platform::Socket::Events events) {
  return std::make_unique<QtSocket>(std::move(events), resolve_);
}

std::unique_ptr<platform::TimerPort> QtPlatform::MakeTimer(std::function<void()> tick) {
  return std::make_unique<QtTimer>(std::move(tick));
}

void QtPlatform::Post(std::function<void()> task) {
  QMetaObject::invokeMethod(&posted_, std::move(task), Qt::QueuedConnection);
}

platform::LocalTime QtPlatform::local_time() const {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  return {.year = parts.tm_year + 1900,
          .month = parts.tm_mon + 1,
          .day = parts.tm_mday,
          .hour = parts.tm_hour,
          .minute = parts.tm_min,
          .second = parts.tm_sec};
}

}  // namespace qt

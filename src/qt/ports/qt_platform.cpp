#include "qt/ports/qt_platform.h"

#include <utility>

#include "qt/ports/qt_timer.h"

namespace qt {

QtPlatform::QtPlatform(const Looks& looks, Resolver resolve)
    : resolve_(std::move(resolve)), desktop_(looks, windows) {}

std::unique_ptr<platform::Socket> QtPlatform::MakeSocket(platform::Socket::Events events) {
  return std::make_unique<QtSocket>(std::move(events), resolve_);
}

std::unique_ptr<platform::TimerPort> QtPlatform::MakeTimer(std::function<void()> tick) {
  return std::make_unique<QtTimer>(std::move(tick));
}

void QtPlatform::Post(std::function<void()> task) {
  QMetaObject::invokeMethod(&posted_, std::move(task), Qt::QueuedConnection);
}

}  // namespace qt

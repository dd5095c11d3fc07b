#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace support {

/// Runs the event loop until `done()` holds; false when it doesn't within 10 seconds.
template <typename Condition>
[[nodiscard]] bool WaitFor(Condition done) {
  const QDeadlineTimer deadline(10000);
  while (!done()) {
    if (deadline.hasExpired()) return false;
    // Ends the wait for events now and then, for conditions that no event of ours announces.
    QTimer::singleShot(5, QCoreApplication::instance(), [] {});
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  return true;
}

/// Lets everything happen that is under way on this machine.
inline void Settle() {
  bool over = false;
  QTimer::singleShot(100, QCoreApplication::instance(), [&over] { over = true; });
  while (!over) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace support

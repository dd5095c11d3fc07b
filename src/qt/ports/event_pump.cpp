#include "qt/ports/event_pump.h"

#include <utility>

#include <QElapsedTimer>

namespace qt {

EventPump::EventPump(std::function<bool()> next) : next_(std::move(next)) {}

void EventPump::Queue() {
  // While a handler waits for a modal box, the turn that it belongs to goes on afterwards.
  if (queued_ || running_) return;
  queued_ = true;
  QMetaObject::invokeMethod(this, &EventPump::Turn, Qt::QueuedConnection);
}

void EventPump::Turn() {
  queued_ = false;
  running_ = true;
  QElapsedTimer turn;
  turn.start();
  bool more = true;
  while (more && turn.elapsed() < kTurnMs) more = next_();
  running_ = false;
  if (more) Queue();
}

}  // namespace qt

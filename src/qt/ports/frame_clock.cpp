#include "qt/ports/frame_clock.h"

#include <algorithm>
#include <utility>

namespace qt {

Refreshable::~Refreshable() {
  if (clock_) clock_->Forget(*this);
}

FrameClock::FrameClock(QObject* parent) : QObject(parent) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &FrameClock::Flush);
}

FrameClock::~FrameClock() {
  for (auto* list : {&wanted_, &asleep_, &flushing_}) {
    for (Refreshable* refreshable : *list) {
      if (refreshable) refreshable->clock_ = nullptr;
    }
  }
}

void FrameClock::Want(Refreshable& refreshable) {
  if (refreshable.clock_) return;
  refreshable.clock_ = this;
  wanted_.push_back(&refreshable);
  Schedule();
}

void FrameClock::Wake() {
  if (asleep_.empty()) return;
  wanted_.insert(wanted_.end(), asleep_.begin(), asleep_.end());
  asleep_.clear();
  Schedule();
}

void FrameClock::Forget(Refreshable& refreshable) {
  for (auto* list : {&wanted_, &asleep_, &flushing_}) {
    std::replace(list->begin(), list->end(), &refreshable, static_cast<Refreshable*>(nullptr));
  }
  std::erase(asleep_, nullptr);
}

void FrameClock::Schedule() {
  if (scheduled_) return;
  scheduled_ = true;
  const qint64 passed = since_flush_.isValid() ? since_flush_.elapsed() : kFrameMs;
  if (passed < kFrameMs) {
    timer_.start(static_cast<int>(kFrameMs - passed));
  } else {
    // Posted, since a timer of 0 ms has to wait until no socket and no event is left.
    QMetaObject::invokeMethod(this, &FrameClock::Flush, Qt::QueuedConnection);
  }
}

void FrameClock::Flush() {
  scheduled_ = false;
  since_flush_.start();
  // A refresh that came to run the event loop would end up here again: the inner turn then does
  // all that is left, and the outer one finds the list empty.
  flushing_.insert(flushing_.end(), wanted_.begin(), wanted_.end());
  wanted_.clear();
  for (std::size_t i = 0; i < flushing_.size(); ++i) {
    Refreshable* next = std::exchange(flushing_[i], nullptr);
    if (!next) continue;
    if (next->Ready()) {
      next->clock_ = nullptr;
      next->Refresh();
    } else {
      asleep_.push_back(next);
    }
  }
  flushing_.clear();
}

}  // namespace qt

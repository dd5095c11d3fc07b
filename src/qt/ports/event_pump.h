#pragma once

#include <functional>

#include <QObject>

namespace qt {

/// Hands events over from the event loop and never from within one another. `next` hands over one
/// event, if there is one, and says whether another may be waiting. It is called again and again
/// for up to 8 ms; what is left then waits until the event loop has seen to everything else.
class EventPump : public QObject {
 public:
  static constexpr int kTurnMs = 8;

  explicit EventPump(std::function<bool()> next);

  /// Something has come up; costs next to nothing when a turn is due anyway.
  void Queue();

 private:
  void Turn();

  std::function<bool()> next_;
  bool queued_ = false, running_ = false;
};

}  // namespace qt

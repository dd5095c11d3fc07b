#pragma once

#include <vector>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace qt {

class FrameClock;

/// Something on the screen that follows its model. It may go while it is wanted.
class Refreshable {
 public:
  Refreshable() = default;
  virtual ~Refreshable();
  Refreshable(const Refreshable&) = delete;
  Refreshable& operator=(const Refreshable&) = delete;

  /// Brings the screen up to the model.
  virtual void Refresh() = 0;
  /// False while it can't be seen, as when its window is hidden: it then stays wanted until
  /// `FrameClock::Wake` finds it ready.
  [[nodiscard]] virtual bool Ready() const { return true; }

 private:
  friend class FrameClock;
  FrameClock* clock_ = nullptr;  // while wanted
};

/// Refreshes what is wanted, all together and at most once in 16 ms: in the next turn of the event
/// loop after a quiet time, else when the frame is over. No timer runs while nothing is wanted.
class FrameClock : public QObject {
 public:
  static constexpr int kFrameMs = 16;

  explicit FrameClock(QObject* parent = nullptr);
  ~FrameClock() override;

  /// Wanted twice is refreshed once.
  void Want(Refreshable& refreshable);
  /// A window has been shown: those that were not ready are asked again.
  void Wake();

 private:
  friend class Refreshable;
  void Forget(Refreshable& refreshable);
  void Schedule();
  void Flush();

  std::vector<Refreshable*> wanted_, asleep_, flushing_;  // nullptr where one has gone
  QTimer timer_;
  QElapsedTimer since_flush_;
  bool scheduled_ = false;
};

}  // namespace qt

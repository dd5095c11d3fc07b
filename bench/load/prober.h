#pragma once

#include <atomic>
#include <functional>
#include <thread>

#include <QObject>

#include "samples.h"

namespace load {

/// Posts an event from a thread of its own every few milliseconds, as long as it lives, and
/// measures how long each waits for the event loop of the thread that made it.
class Prober {
 public:
  /// Both optional: `here` runs with each event, `there` ten times a second on the other thread.
  Prober(std::function<void()> here, std::function<void()> there);
  ~Prober() { Stop(); }

  void Stop();
  [[nodiscard]] const Samples& waits() const { return waits_; }
  /// How late the thread woke up to post: what this machine adds by itself. After Stop().
  [[nodiscard]] const Samples& late() const { return late_; }

 private:
  void Run();

  QObject context_;
  std::function<void()> here_, there_;
  Samples waits_, late_;
  std::atomic<bool> stop_ = false;
  std::thread thread_;
};

}  // namespace load

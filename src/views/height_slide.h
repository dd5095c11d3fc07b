#pragma once

#include <functional>

#include "platform/timer.h"
#include "platform/window.h"

namespace views {

/// Brings the height of a window to an end in small steps that take about a third of a second, and
/// waits until the screen has followed. The window outlives it. A window that is maximised or
/// minimised keeps its size; one that can't take the height is no obstacle. What is asked for while
/// it runs is dropped.
class HeightSlide {
 public:
  HeightSlide(platform::Platform& platform, platform::Window& window);

  [[nodiscard]] bool running() const { return timer_.enabled(); }
  /// Steps to the outer height `end`, sets exactly that, then waits as `Await` does.
  void To(int end, std::function<void()> then);
  /// Runs `then` once the screen shows the window as it is now, or a while later where it doesn't.
  void Await(std::function<void()> then);
  /// At once, with nothing to follow.
  void Stop();

 private:
  void Tick();
  void StepOn();
  void SetHeight(int height);
  void Finish();

  platform::Window& window_;
  std::function<void()> then_;
  int height_ = 0, end_ = 0, step_ = 0;  // of the window, in twips; step 0 while it waits
  int patience_ = 0;                     // ticks left to wait
  platform::Timer timer_;
};

}  // namespace views

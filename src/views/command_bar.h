#pragma once

#include <functional>

#include "platform/controls.h"
#include "platform/grid.h"
#include "platform/platform.h"
#include "platform/timer.h"

namespace views {

/// Slides the command bar above a grid out of sight and back in small steps, with the grid below
/// following. Bar and grid outlive it. Only the end of a slide counts for others; a second request
/// during one is dropped.
class CommandBar {
 public:
  /// The bar's top is at `shown_top` when it is in. `settled` runs at the end of every slide.
  CommandBar(platform::Platform& platform, platform::PictureBox& bar, platform::Grid& grid,
             int shown_top, std::function<void()> settled);

  /// The grid stands below the bar.
  [[nodiscard]] bool shown() const;
  [[nodiscard]] bool hidden() const;
  void SlideIn() { Slide(kStep); }
  void SlideOut() { Slide(-kStep); }
  /// The bar stays where it is.
  void Cancel();

 private:
  static constexpr int kStep = 20;  // twips

  void Slide(int step);
  void Step();
  void Place(int bar_top, int grid_top);
  [[nodiscard]] int HiddenTop() const { return 1 - bar_.rect().height; }

  platform::PictureBox& bar_;
  platform::Grid& grid_;
  int shown_top_;
  std::function<void()> settled_;
  int step_ = 0;  // 0 at rest
  platform::Timer timer_;
};

}  // namespace views

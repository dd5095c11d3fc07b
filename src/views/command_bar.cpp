#include "views/command_bar.h"

#include <algorithm>
#include <utility>

namespace views {
namespace {

constexpr int kStepMs = 10;
constexpr int kBareGridTop = 1;  // of the grid without the bar

}  // namespace

CommandBar::CommandBar(platform::Platform& platform, platform::PictureBox& bar,
                       platform::Grid& grid, int shown_top, std::function<void()> settled)
    : bar_(bar),
      grid_(grid),
      shown_top_(shown_top),
      settled_(std::move(settled)),
      timer_(platform, kStepMs, false) {
  timer_.on_tick = [this] { Step(); };
}

bool CommandBar::shown() const { return grid_.rect().top >= bar_.rect().height + 1; }

bool CommandBar::hidden() const { return bar_.rect().top <= HiddenTop(); }

void CommandBar::Slide(int step) {
  if (step_ != 0) return;
  step_ = step;
  timer_.set_enabled(true);
}

void CommandBar::Step() {
  const int top = std::clamp(bar_.rect().top + step_, HiddenTop(), shown_top_);
  Place(top, top - shown_top_ + bar_.rect().height + 1);
  const bool arrived = step_ > 0 ? top >= shown_top_ : top <= HiddenTop();
  if (!arrived) return;
  if (step_ < 0) Place(top, kBareGridTop);
  Cancel();
  settled_();
}

void CommandBar::Cancel() {
  step_ = 0;
  timer_.set_enabled(false);
}

void CommandBar::Place(int bar_top, int grid_top) {
  platform::Rect rect = bar_.rect();
  rect.top = bar_top;
  bar_.set_rect(rect);
  rect = grid_.rect();
  rect.top = grid_top;
  grid_.set_rect(rect);
}

}  // namespace views

#include "views/height_slide.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace views {
namespace {

constexpr int kTickMs = 8;
constexpr int kStep = 40;           // twips
constexpr int kTicksOfASlide = 40;  // where one step a tick would take longer, there are more
constexpr int kPatience = 12;       // ticks, several frames of the screen

}  // namespace

HeightSlide::HeightSlide(platform::Platform& platform, platform::Window& window)
    : window_(window), timer_(platform, kTickMs, false) {
  timer_.on_tick = [this] { Tick(); };
}

void HeightSlide::To(int end, std::function<void()> then) {
  if (running()) return;
  height_ = window_.rect().height;
  end_ = end;
  const int steps = std::abs(end_ - height_) / kStep;
  step_ = kStep * (1 + steps / kTicksOfASlide);
  then_ = std::move(then);
  timer_.set_enabled(true);
}

void HeightSlide::Await(std::function<void()> then) {
  if (running()) return;
  step_ = 0;
  patience_ = kPatience;
  then_ = std::move(then);
  timer_.set_enabled(true);
}

void HeightSlide::Stop() {
  timer_.set_enabled(false);
  then_ = nullptr;
}

void HeightSlide::Tick() {
  if (window_.state() != platform::Window::State::normal) return Finish();
  if (step_ != 0) return StepOn();
  if (--patience_ <= 0) return Finish();
  // The tick after the screen has taken the size over, so that what it lays out has followed too.
  if (!window_.dirty()) patience_ = std::min(patience_, 1);
}

// Counts for itself: the window may say that it is smaller or larger than it was told to be.
void HeightSlide::StepOn() {
  const int left = end_ - height_;
  height_ += std::clamp(left, -step_, step_);
  SetHeight(height_);
  if (height_ != end_) return;
  step_ = 0;
  patience_ = kPatience;
}

void HeightSlide::SetHeight(int height) {
  platform::Rect rect = window_.rect();
  rect.height = height;
  window_.set_rect(rect);
}

void HeightSlide::Finish() {
  timer_.set_enabled(false);
  if (const auto then = std::exchange(then_, nullptr)) then();
}

}  // namespace views

#include "views/resizer.h"

#include <algorithm>
#include <cmath>

namespace views {
namespace {

int Scaled(int twips, double factor) { return static_cast<int>(std::lround(twips * factor)); }

// By its edges, so that controls that touch go on touching.
platform::Rect Scaled(const platform::Rect& design, double x, double y) {
  platform::Rect rect{Scaled(design.left, x), Scaled(design.top, y), 0, 0};
  rect.width = Scaled(design.left + design.width, x) - rect.left;
  rect.height = Scaled(design.top + design.height, y) - rect.top;
  return rect;
}

}  // namespace

void Resizer::Add(platform::Control& control) { entries_.push_back({&control, control.rect()}); }

void Resizer::set_least(int inner_width, int inner_height) {
  least_width_ = inner_width;
  least_height_ = inner_height;
}

void Resizer::Sized(int inner_width, int inner_height) {
  if (inner_width <= 0 || inner_height <= 0) return;
  if (base_width_ == 0) {
    base_width_ = std::max(inner_width, least_width_);
    base_height_ = std::max(inner_height, least_height_);
  } else if (!enabled_) {
    base_width_ = inner_width / scale_x_;
    base_height_ = inner_height / scale_y_;
    return;
  }
  scale_x_ = inner_width / base_width_;
  scale_y_ = inner_height / base_height_;
  for (const Entry& entry : entries_) {
    entry.control->set_rect(Scaled(entry.design, scale_x_, scale_y_));
  }
}

}  // namespace views

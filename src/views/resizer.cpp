#include "views/resizer.h"

namespace views {

void Resizer::Add(platform::Control& control) { entries_.push_back({&control, control.rect()}); }

void Resizer::Sized(int inner_width, int inner_height) {
  width_ = inner_width;
  height_ = inner_height;
}

}  // namespace views

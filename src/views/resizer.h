#pragma once

#include <vector>

#include "platform/control.h"

namespace views {

/// Keeps the controls of a window in proportion to its inner size while it is on. What happens to
/// the size while it is off leaves the controls where they are. The controls outlive it.
class Resizer {
 public:
  /// To be called once for each control, after its design place has been set.
  void Add(platform::Control& control);
  [[nodiscard]] bool enabled() const { return enabled_; }
  void set_enabled(bool enabled) { enabled_ = enabled; }
  /// The inner size that holds the design, in twips: a first size below it shrinks the controls.
  void set_least(int inner_width, int inner_height);
  /// The inner size of the window is this now, in twips. The first size is that of the design; a
  /// size without any room is skipped.
  void Sized(int inner_width, int inner_height);
  /// Factors against the design.
  [[nodiscard]] double scale_x() const { return scale_x_; }
  [[nodiscard]] double scale_y() const { return scale_y_; }

 private:
  struct Entry {
    platform::Control* control;
    platform::Rect design;
  };

  std::vector<Entry> entries_;
  bool enabled_ = true;
  int least_width_ = 0, least_height_ = 0;
  double base_width_ = 0, base_height_ = 0;  // the inner size at which the factors are 1
  double scale_x_ = 1, scale_y_ = 1;
};

}  // namespace views

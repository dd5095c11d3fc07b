#pragma once

#include <string>
#include <string_view>

#include "platform/model.h"

namespace platform {

/// Place and size in twips (1/1440 inch). 15 twips are one pixel of a standard screen.
struct Rect {
  int left = 0, top = 0, width = 0, height = 0;
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// What all controls of a window have in common. The accessible name of a control is its caption,
/// else the caption of the label in front of it, else its tool tip.
class Control : public Model {
 public:
  [[nodiscard]] const Rect& rect() const { return rect_; }
  void set_rect(const Rect& rect) { Set(rect_, rect); }
  [[nodiscard]] bool visible() const { return visible_; }
  void set_visible(bool visible) { Set(visible_, visible); }
  [[nodiscard]] bool enabled() const { return enabled_; }
  void set_enabled(bool enabled) { Set(enabled_, enabled); }
  /// Plain text; never shown as markup.
  [[nodiscard]] const std::string& tool_tip() const { return tool_tip_; }
  void set_tool_tip(std::string_view tip) { Set(tool_tip_, tip); }

 private:
  Rect rect_;
  bool visible_ = true;
  bool enabled_ = true;
  std::string tool_tip_;
};

}  // namespace platform

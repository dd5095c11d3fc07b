#include "platform/controls.h"

#include "base/text.h"

namespace platform {

void TextBox::set_text(std::string_view text) {
  if (max_length_ > 0) text = base::CutUtf8(text, static_cast<std::size_t>(max_length_));
  if (Set(text_, text) && on_change) on_change();
}

}  // namespace platform

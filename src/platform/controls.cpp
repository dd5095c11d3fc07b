#include "platform/controls.h"

#include "base/text.h"

namespace platform {

void TextBox::set_text(std::string_view text) {
  if (max_length_ > 0) text = base::CutUtf8(text, static_cast<std::size_t>(max_length_));
  if (Set(text_, text) && on_change) on_change();
}

void OptionButton::set_value(bool value) {
  if (!Set(value_, value) || !value) return;
  for (OptionButton* other = next_; other != this; other = other->next_) other->set_value(false);
  if (on_click) on_click();
}

void ListBox::AddItem(std::string_view text) {
  items_.emplace_back(text);
  Touch();
}

void ListBox::Clear() {
  Set(list_index_, -1);
  if (items_.empty()) return;
  items_.clear();
  Touch();
}

void ListBox::set_list_index(int index) {
  if (index >= -1 && index < static_cast<int>(items_.size())) Set(list_index_, index);
}

void ListBox::Click(int index) {
  if (index < 0 || index >= static_cast<int>(items_.size())) return;
  Set(list_index_, index);
  if (on_click) on_click();
}

void ComboBox::AddItem(std::string_view text) {
  items_.emplace_back(text);
  Touch();
}

void ComboBox::Clear() {
  if (items_.empty()) return;
  items_.clear();
  Touch();
}

void ComboBox::set_text(std::string_view text) {
  if (Set(text_, text) && on_change) on_change();
}

void ComboBox::Click(int index) {
  if (index < 0 || index >= static_cast<int>(items_.size())) return;
  Set(text_, items_[static_cast<std::size_t>(index)]);
  if (on_click) on_click();
}

}  // namespace platform

#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/palette.h"
#include "platform/control.h"

// The small controls. Texts are UTF-8 and plain. Hooks (`on_...`) are set by the window that owns
// the control and called by whoever drives it: the screen, or a test. An empty hook is skipped.
namespace platform {

/// One line (or box) of text that the user can't change.
class Label : public Control {
 public:
  std::function<void()> on_click, on_double_click;

  [[nodiscard]] const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption) { Set(caption_, caption); }
  [[nodiscard]] base::Color fore() const { return fore_; }
  void set_fore(base::Color fore) { Set(fore_, fore); }
  [[nodiscard]] base::Color back() const { return back_; }
  void set_back(base::Color back) { Set(back_, back); }

  void Click() {
    if (on_click) on_click();
  }
  void DoubleClick() {
    if (on_double_click) on_double_click();
  }

 private:
  std::string caption_;
  base::Color fore_ = base::palette::kBlack;
  base::Color back_ = base::palette::kWhite;
};

/// One line of text that the user types. `on_change` runs on every real change of the text, by
/// the user or the program.
class TextBox : public Control {
 public:
  /// `on_enter` runs when the user presses Enter in it.
  std::function<void()> on_change, on_enter;

  [[nodiscard]] const std::string& text() const { return text_; }
  /// Cuts at max_length characters.
  void set_text(std::string_view text);
  /// Characters; 0 is no limit.
  [[nodiscard]] int max_length() const { return max_length_; }
  void set_max_length(int length) { Set(max_length_, length); }
  /// The user can't change the text.
  [[nodiscard]] bool locked() const { return locked_; }
  void set_locked(bool locked) { Set(locked_, locked); }
  [[nodiscard]] base::Color fore() const { return fore_; }
  void set_fore(base::Color fore) { Set(fore_, fore); }
  [[nodiscard]] base::Color back() const { return back_; }
  void set_back(base::Color back) { Set(back_, back); }
  /// Shows "*" for every character.
  [[nodiscard]] bool password() const { return password_; }
  void set_password(bool password) { Set(password_, password); }
  /// Caption of the label that stands in front of it: its accessible name.
  [[nodiscard]] const std::string& label() const { return label_; }
  void set_label(std::string_view label) { Set(label_, label); }

 private:
  std::string text_, label_;
  int max_length_ = 0;
  bool password_ = false, locked_ = false;
  base::Color fore_ = base::palette::kBlack, back_ = base::palette::kBrightWhite;
};

/// A push button. `caption` may hold "&" before its mnemonic letter ("&&" is a plain "&").
class Button : public Control {
 public:
  std::function<void()> on_click;

  [[nodiscard]] const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption) { Set(caption_, caption); }
  void Click() {
    if (enabled() && on_click) on_click();
  }

 private:
  std::string caption_;
};

/// A check box of value 0 or 1. `on_click` runs on every real change of the value, by the user or
/// the program.
class CheckBox : public Control {
 public:
  std::function<void()> on_click;

  [[nodiscard]] const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption) { Set(caption_, caption); }
  [[nodiscard]] int value() const { return value_; }
  void set_value(int value) {
    if (Set(value_, value != 0 ? 1 : 0) && on_click) on_click();
  }

 private:
  std::string caption_;
  int value_ = 0;
};

/// One of several answers of which one is on. Those made from one another are a group: turning one
/// on turns the others off. `on_click` runs when it is turned on, by the user or the program.
/// They end together.
class OptionButton : public Control {
 public:
  OptionButton() = default;
  /// Joins the group of `other`.
  explicit OptionButton(OptionButton& other) : next_(other.next_) { other.next_ = this; }

  std::function<void()> on_click;

  [[nodiscard]] const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption) { Set(caption_, caption); }
  [[nodiscard]] bool value() const { return value_; }
  void set_value(bool value);

 private:
  std::string caption_;
  bool value_ = false;
  OptionButton* next_ = this;  // ring
};

/// Lines of text of which the user may choose one.
class ListBox : public Control {
 public:
  /// `on_click` runs when the user chooses a line, the same one again included.
  std::function<void()> on_click, on_double_click;

  [[nodiscard]] const std::vector<std::string>& items() const { return items_; }
  void AddItem(std::string_view text);
  /// Takes every line out; none is chosen then.
  void Clear();
  /// From 0; -1 is none. A number out of range changes nothing.
  [[nodiscard]] int list_index() const { return list_index_; }
  void set_list_index(int index);
  /// The user chooses a line.
  void Click(int index);
  void DoubleClick() {
    if (on_double_click) on_double_click();
  }

 private:
  std::vector<std::string> items_;
  int list_index_ = -1;
};

/// One line of text that the user types, or chooses from a list of entries. `on_change` runs on
/// every real change of the text that isn't the choice of an entry, by the user or the program.
class ComboBox : public Control {
 public:
  /// `on_click` runs when the user chooses an entry, the same one again included.
  std::function<void()> on_change, on_click, on_double_click;

  [[nodiscard]] const std::vector<std::string>& items() const { return items_; }
  void AddItem(std::string_view text);
  /// Takes every entry out; the text stays.
  void Clear();
  [[nodiscard]] const std::string& text() const { return text_; }
  void set_text(std::string_view text);
  /// Caption of the label that stands in front of it: its accessible name.
  [[nodiscard]] const std::string& label() const { return label_; }
  void set_label(std::string_view label) { Set(label_, label); }
  /// The user chooses an entry, from 0: it becomes the text.
  void Click(int index);
  void DoubleClick() {
    if (on_double_click) on_double_click();
  }

 private:
  std::vector<std::string> items_;
  std::string text_, label_;
};

/// How much of something is done: a number from 0 to `max`.
class ProgressBar : public Control {
 public:
  [[nodiscard]] int value() const { return value_; }
  [[nodiscard]] int max() const { return max_; }
  /// 0 for something that has no end yet. A value that passes it is cut.
  void set_max(int max) {
    Set(max_, std::max(max, 0));
    set_value(value_);
  }
  void set_value(int value) { Set(value_, std::clamp(value, 0, max_)); }

 private:
  int value_ = 0, max_ = 0;
};

/// Pictures that the program draws.
enum class Picture { none, connected, receiving, closed, server };

/// Shows one picture, or is the panel that other controls stand on.
class PictureBox : public Control {
 public:
  std::function<void()> on_click;

  [[nodiscard]] Picture picture() const { return picture_; }
  void set_picture(Picture picture) { Set(picture_, picture); }
  void Click() {
    if (on_click) on_click();
  }

 private:
  Picture picture_ = Picture::none;
};

}  // namespace platform

#pragma once

#include <string>
#include <string_view>

#include "platform/control.h"
#include "platform/platform.h"

namespace platform {

/// A window of the program, without its screen. It is loaded at its first use (then stands in the
/// window list and has run `OnLoad`), shown and hidden any number of times, and unloaded. Geometry
/// is in twips, relative to the main window's inner area. Unload before destroying it: a loaded
/// window that is destroyed still leaves list and screen, but its controls are gone by then.
class Window : public Model {
 public:
  enum class State { normal = 0, minimized = 1, maximized = 2 };

  explicit Window(Platform& platform) : platform_(platform) {}
  ~Window() override;

  [[nodiscard]] const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption) { Set(caption_, caption); }
  /// What the window shows; other parts find it by this. Not for the screen.
  [[nodiscard]] const std::string& tag() const { return tag_; }
  void set_tag(std::string_view tag) { tag_ = tag; }
  [[nodiscard]] State state() const { return state_; }
  void set_state(State state) { Set(state_, state); }
  [[nodiscard]] const Rect& rect() const { return rect_; }
  void set_rect(const Rect& rect) { Set(rect_, rect); }
  [[nodiscard]] int inner_width() const { return inner_width_; }
  [[nodiscard]] int inner_height() const { return inner_height_; }

  [[nodiscard]] bool loaded() const { return loaded_; }
  [[nodiscard]] bool visible() const { return visible_; }
  void Load();
  /// Loads where needed, makes visible and brings to the front.
  void Show();
  /// The same without taking the keyboard from where it is.
  void Raise();
  void Hide();
  /// Asks `OnQueryUnload`, and unless that cancels takes the window from screen and list. True when
  /// it is unloaded; false also while it is unloading already.
  bool Unload();
  /// Skipped while the window isn't visible.
  void SetFocus(Control& control);

  // From the screen.
  /// The user closes the window.
  void UserClose() { Unload(); }
  /// The window has this place and inner size now. Runs `OnResize` where the inner size changed.
  void Placed(const Rect& rect, State state, int inner_width, int inner_height);

 protected:
  virtual void OnLoad() {}
  /// False cancels the unload.
  virtual bool OnQueryUnload() { return true; }
  virtual void OnUnload() {}
  virtual void OnResize() {}
  /// The window becomes visible.
  virtual void OnShow() {}
  /// The program has shown it, seen before or not.
  virtual void OnActivate() {}

  [[nodiscard]] Platform& platform() const { return platform_; }

 private:
  void Leave();
  void MakeVisible();

  Platform& platform_;
  std::string caption_, tag_;
  State state_ = State::normal;
  Rect rect_;
  int inner_width_ = 0, inner_height_ = 0;
  bool loaded_ = false, visible_ = false, unloading_ = false;
};

}  // namespace platform

#include "platform/window.h"

namespace platform {

Window::~Window() {
  if (loaded_) Leave();
}

void Window::Load() {
  if (loaded_) return;
  loaded_ = true;
  platform_.windows.Add(*this);
  OnLoad();
}

void Window::MakeVisible() {
  Load();
  if (Set(visible_, true)) OnShow();
}

void Window::Show() {
  MakeVisible();
  platform_.desktop().Shown(*this);
  OnActivate();
}

void Window::Raise() {
  MakeVisible();
  platform_.desktop().Raised(*this);
}

void Window::Hide() {
  if (Set(visible_, false)) platform_.desktop().Hidden(*this);
}

bool Window::Unload() {
  if (!loaded_) return true;
  if (unloading_) return false;
  unloading_ = true;
  const bool allowed = OnQueryUnload();
  if (allowed) {
    OnUnload();
    Leave();
  }
  unloading_ = false;
  return allowed;
}

void Window::Leave() {
  loaded_ = false;
  Set(visible_, false);
  platform_.windows.Remove(*this);
  platform_.desktop().Closed(*this);
}

void Window::SetFocus(Control& control) {
  if (visible_) platform_.desktop().Focus(*this, control);
}

void Window::Placed(const Rect& rect, State state, int inner_width, int inner_height) {
  // Comes from the screen, so it isn't told to the screen again.
  rect_ = rect;
  state_ = state;
  if (inner_width == inner_width_ && inner_height == inner_height_) return;
  inner_width_ = inner_width;
  inner_height_ = inner_height;
  OnResize();
}

}  // namespace platform

#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/ports.h"
#include "qt/ports/frame_clock.h"
#include "qt/ports/looks.h"
#include "qt/ports/window_frame.h"

namespace platform {
class WindowList;
}

namespace qt {

/// The screen. A window gets its widget when it is first shown, from the look of its type. Windows
/// of their own stay above the main one while they aren't minimised. `looks` and `windows` outlive
/// it; a window that it has shown lives, with its controls, until `Closed` or `Clear`.
class QtDesktop : public platform::Desktop {
 public:
  QtDesktop(const Looks& looks, const platform::WindowList& windows);
  ~QtDesktop() override;

  void Shown(platform::Window& window) override;
  void Raised(platform::Window& window) override;
  void Hidden(platform::Window& window) override;
  void Closed(platform::Window& window) override;
  void Focus(platform::Window& window, platform::Control& control) override;
  [[nodiscard]] std::vector<std::string> Fonts() const override;

  /// Takes every window from the screen.
  void Clear();
  /// nullptr while the window has no widget.
  [[nodiscard]] WindowFrame* FrameOf(const platform::Window& window) const;

 private:
  WindowFrame* Make(platform::Window& window);
  void PutOnTop(WindowFrame& frame);
  void RaiseDialogs();
  [[nodiscard]] const QWidget* MainWidget() const;

  const Looks& looks_;
  const platform::WindowList& windows_;
  FrameClock clock_;
  std::unordered_map<const platform::Window*, std::unique_ptr<WindowFrame>> frames_;
  std::vector<WindowFrame*> dialogs_;  // the topmost last
};

}  // namespace qt

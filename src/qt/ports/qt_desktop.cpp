#include "qt/ports/qt_desktop.h"

#include <utility>

#include <QApplication>

#include "platform/window_list.h"

namespace qt {

QtDesktop::QtDesktop(const Looks& looks, const platform::WindowList& windows)
    : looks_(looks), windows_(windows) {}

QtDesktop::~QtDesktop() { Clear(); }

WindowFrame* QtDesktop::FrameOf(const platform::Window& window) const {
  const auto frame = frames_.find(&window);
  return frame == frames_.end() ? nullptr : frame->second.get();
}

const QWidget* QtDesktop::MainWidget() const {
  const WindowFrame* main = windows_.size() > 0 ? FrameOf(windows_.at(0)) : nullptr;
  return main && main->Ready() ? main->outer() : nullptr;
}

WindowFrame* QtDesktop::Make(platform::Window& window) {
  if (WindowFrame* frame = FrameOf(window)) return frame;
  std::optional<Look> look = looks_.Make(window, clock_);
  if (!look) return nullptr;
  QMdiArea* area = nullptr;
  if (look->place == Place::child && windows_.size() > 0) {
    // The main window is first in the list, and has its area even before it is shown.
    const WindowFrame* main = Make(windows_.at(0));
    area = main ? main->look().area : nullptr;
  }
  const bool is_main = look->place == Place::main;
  auto frame = std::make_unique<WindowFrame>(window, std::move(*look), clock_, area);
  if (is_main) {
    frame->on_activated = [this] {
      for (const auto& [other, dialog] : frames_) {
        if (dialog->look().place == Place::dialog) dialog->Raise();
      }
    };
  }
  return (frames_[&window] = std::move(frame)).get();
}

void QtDesktop::Shown(platform::Window& window) {
  if (WindowFrame* frame = Make(window)) frame->Show(MainWidget());
}

void QtDesktop::Raised(platform::Window& window) {
  if (WindowFrame* frame = Make(window)) frame->ShowQuietly(MainWidget());
  // What locks the others must not get lost behind one of them.
  if (QWidget* box = QApplication::activeModalWidget()) box->raise();
}

void QtDesktop::Hidden(platform::Window& window) {
  if (WindowFrame* frame = FrameOf(window)) frame->Hide();
}

void QtDesktop::Closed(platform::Window& window) { frames_.erase(&window); }

void QtDesktop::Focus(platform::Window& window, platform::Control& control) {
  if (WindowFrame* frame = FrameOf(window)) frame->Focus(control);
}

void QtDesktop::Clear() { frames_.clear(); }

}  // namespace qt

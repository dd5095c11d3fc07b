#include "qt/ports/qt_desktop.h"

#include <utility>

#include <QApplication>
#include <QFontDatabase>

#include "platform/window_list.h"

namespace qt {
namespace {

// What locks the others must not get lost behind one of them.
void RaiseBox() {
  if (QWidget* box = QApplication::activeModalWidget()) box->raise();
}

}  // namespace

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
  auto frame = std::make_unique<WindowFrame>(window, std::move(*look), clock_, area);
  if (frame->look().place == Place::main) {
    frame->on_lifted = [this] { RaiseDialogs(); };
  } else if (frame->look().place == Place::dialog) {
    frame->on_lifted = [this, lifted = frame.get()] { PutOnTop(*lifted); };
  }
  return (frames_[&window] = std::move(frame)).get();
}

void QtDesktop::PutOnTop(WindowFrame& frame) {
  if (frame.look().place != Place::dialog) return;
  std::erase(dialogs_, &frame);
  dialogs_.push_back(&frame);
}

void QtDesktop::RaiseDialogs() {
  for (WindowFrame* dialog : dialogs_) dialog->Raise();
  RaiseBox();
}

void QtDesktop::Shown(platform::Window& window) {
  WindowFrame* frame = Make(window);
  if (!frame) return;
  frame->Show(MainWidget());
  PutOnTop(*frame);
  // To activate a child lifts the main window, even one that is active.
  RaiseDialogs();
}

void QtDesktop::Raised(platform::Window& window) {
  WindowFrame* frame = Make(window);
  if (!frame) return;
  frame->ShowQuietly(MainWidget());
  PutOnTop(*frame);
  RaiseBox();
}

void QtDesktop::Hidden(platform::Window& window) {
  if (WindowFrame* frame = FrameOf(window)) frame->Hide();
}

void QtDesktop::Closed(platform::Window& window) {
  std::erase(dialogs_, FrameOf(window));
  // Gone from here before its end gives the keyboard to another.
  (void)frames_.extract(&window);
}

void QtDesktop::Focus(platform::Window& window, platform::Control& control) {
  WindowFrame* frame = FrameOf(window);
  if (!frame) return;
  frame->Focus(control);
  PutOnTop(*frame);
  RaiseDialogs();
}

std::vector<std::string> QtDesktop::Fonts() const {
  std::vector<std::string> names;
  for (const QString& family : QFontDatabase::families()) {
    if (!QFontDatabase::isPrivateFamily(family)) names.push_back(family.toStdString());
  }
  return names;
}

void QtDesktop::Clear() {
  while (!frames_.empty()) {
    std::erase(dialogs_, frames_.begin()->second.get());
    (void)frames_.extract(frames_.begin());
  }
}

}  // namespace qt

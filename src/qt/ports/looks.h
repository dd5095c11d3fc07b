#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <typeindex>
#include <typeinfo>
#include <unordered_map>

#include <QMdiArea>
#include <QWidget>

#include "platform/window.h"
#include "qt/ports/frame_clock.h"

namespace qt {

/// Where a window stands: the main one, inside the main one, or in front of it by itself.
enum class Place { main, child, dialog };

/// How a window looks. The desktop takes the widget over and keeps caption, place, state and
/// visibility equal with the window, whose one watcher it is; the look cares for the controls.
/// `bond` holds whatever refers to the window's models: it is dropped in the moment the window
/// closes, whereas the widget goes with the next turn of the event loop.
struct Look {
  QWidget* widget = nullptr;
  Place place = Place::child;
  QMdiArea* area = nullptr;  // of the main window: where the child windows go
  std::function<QWidget*(platform::Control&)> widget_of{};  // nullptr for a control without widget
  std::shared_ptr<void> bond{};
  bool modal = false;  // while it is seen, no other window takes input
  bool apart = false;  // a child that comes up where it covers no other such, if there is room
};

/// The looks by type of window. A window of an unknown type isn't shown.
class Looks {
 public:
  template <typename W>
  void Add(std::function<Look(W&, FrameClock&)> make) {
    makers_[typeid(W)] = [make = std::move(make)](platform::Window& window, FrameClock& clock) {
      return make(static_cast<W&>(window), clock);
    };
  }
  [[nodiscard]] std::optional<Look> Make(platform::Window& window, FrameClock& clock) const {
    const auto maker = makers_.find(typeid(window));
    if (maker == makers_.end()) return std::nullopt;
    return maker->second(window, clock);
  }

 private:
  std::unordered_map<std::type_index, std::function<Look(platform::Window&, FrameClock&)>> makers_;
};

}  // namespace qt

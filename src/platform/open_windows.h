#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "platform/platform.h"

namespace platform {

/// Owns windows of one type that come and go, first opened first. One that is unloaded leaves at
/// once, but lives until control is back in the event loop: any handler of it may be running. `W`
/// is a Window with a hook `al_descargar` that its unloading runs. What is left is unloaded at the
/// end.
template <typename W>
class OpenWindows {
 public:
  explicit OpenWindows(Platform& platform)
      : platform_(platform), closed_(std::make_shared<Owned>()) {}
  ~OpenWindows() {
    const Owned last = std::exchange(open_, {});
    for (const auto& window : last) window->Unload();
  }
  OpenWindows(const OpenWindows&) = delete;
  OpenWindows& operator=(const OpenWindows&) = delete;

  W& Add(std::unique_ptr<W> window) {
    W& added = *window;
    added.al_descargar = [this, &added] { Retire(added); };
    open_.push_back(std::move(window));
    return added;
  }
  [[nodiscard]] std::size_t size() const { return open_.size(); }
  /// `index` from 0, below size(). Valid until control is back in the event loop.
  [[nodiscard]] W& at(std::size_t index) const { return *open_[index]; }

 private:
  using Owned = std::vector<std::unique_ptr<W>>;

  void Retire(const W& window) {
    const auto is_it = [&](const auto& each) { return each.get() == &window; };
    const auto found = std::ranges::find_if(open_, is_it);
    if (found == open_.end()) return;
    closed_->push_back(std::move(*found));
    open_.erase(found);
    // Where the event loop doesn't come back, they end with this object, not with a task that
    // nobody runs.
    platform_.Post([rest = std::weak_ptr(closed_)] {
      if (const auto windows = rest.lock()) windows->clear();
    });
  }

  Platform& platform_;
  Owned open_;
  std::shared_ptr<Owned> closed_;
};

}  // namespace platform

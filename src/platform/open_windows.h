#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "platform/platform.h"

namespace platform {

/// Owns windows of one type that come and go, first opened first, each under a key that others may
/// share. One that is unloaded leaves at once, but lives until control is back in the event loop:
/// any handler of it may be running. `W` is a Window with a hook `al_descargar` that its unloading
/// runs. What is left is unloaded at the end.
template <typename W, typename Key>
class OpenWindows {
 public:
  explicit OpenWindows(Platform& platform)
      : platform_(platform), closed_(std::make_shared<Closed>()) {}
  ~OpenWindows() {
    const auto last = std::exchange(open_, {});
    for (const Entry& each : last) each.window->Unload();
  }
  OpenWindows(const OpenWindows&) = delete;
  OpenWindows& operator=(const OpenWindows&) = delete;

  W& Add(Key key, std::unique_ptr<W> window) {
    W& added = *window;
    added.al_descargar = [this, &added] { Retire(added); };
    open_.push_back({std::move(key), std::move(window)});
    return added;
  }
  [[nodiscard]] std::size_t size() const { return open_.size(); }
  /// `index` from 0, below size(). Valid until control is back in the event loop.
  [[nodiscard]] W& at(std::size_t index) const { return *open_[index].window; }

  /// Windows may come meanwhile: they are visited last.
  template <typename Visit>
  void ForEachOf(const Key& key, const Visit& visit) const {
    for (std::size_t i = 0; i < open_.size(); ++i) {
      if (open_[i].key == key) visit(*open_[i].window);
    }
  }

 private:
  using Closed = std::vector<std::unique_ptr<W>>;
  struct Entry {
    Key key;
    std::unique_ptr<W> window;
  };

  void Retire(const W& window) {
    const auto is_it = [&](const Entry& each) { return each.window.get() == &window; };
    const auto found = std::ranges::find_if(open_, is_it);
    if (found == open_.end()) return;
    closed_->push_back(std::move(found->window));
    open_.erase(found);
    // Where the event loop doesn't come back, they end with this object, not with a task that
    // nobody runs.
    platform_.Post([rest = std::weak_ptr(closed_)] {
      if (const auto windows = rest.lock()) windows->clear();
    });
  }

  Platform& platform_;
  std::vector<Entry> open_;
  std::shared_ptr<Closed> closed_;
};

}  // namespace platform

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace platform {

class Window;

/// The loaded windows in load order, the main window first. Holds no ownership: a window takes
/// itself out when it is unloaded or destroyed.
class WindowList {
 public:
  [[nodiscard]] std::size_t size() const { return windows_.size(); }
  /// `index` from 0, below size().
  [[nodiscard]] Window& at(std::size_t index) const { return *windows_[index].window; }
  /// Calls `visit` for each window in order. Windows may come and go meanwhile: one that is gone is
  /// not visited, one that comes (of the first 1000) is visited last.
  void ForEach(const std::function<void(Window&)>& visit) const;
  /// First window with that tag, or nullptr.
  [[nodiscard]] Window* WithTag(std::string_view tag) const;

 private:
  friend class Window;
  void Add(Window& window);
  void Remove(Window& window);

  /// Bounds a visit that loads a window each time.
  static constexpr std::uint64_t kMaxNewcomers = 1000;
  struct Entry {
    Window* window;
    std::uint64_t number;  // counts the loads, never given twice
  };
  std::vector<Entry> windows_;
  std::uint64_t last_number_ = 0;
};

}  // namespace platform

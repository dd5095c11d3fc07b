#include "platform/window_list.h"

#include <algorithm>

#include "platform/window.h"

namespace platform {

void WindowList::ForEach(const std::function<void(Window&)>& visit) const {
  // By load number: positions shift, and an address may be that of another window by now.
  const std::uint64_t limit = last_number_ + kMaxNewcomers;
  std::uint64_t done = 0;
  while (done < limit) {
    const auto next = std::upper_bound(
        windows_.begin(), windows_.end(), done,
        [](std::uint64_t number, const Entry& entry) { return number < entry.number; });
    if (next == windows_.end()) return;
    done = next->number;
    visit(*next->window);
  }
}

Window* WindowList::WithTag(std::string_view tag) const {
  for (const Entry& entry : windows_) {
    if (entry.window->tag() == tag) return entry.window;
  }
  return nullptr;
}

void WindowList::Add(Window& window) { windows_.push_back({&window, ++last_number_}); }

void WindowList::Remove(Window& window) {
  std::erase_if(windows_, [&](const Entry& entry) { return entry.window == &window; });
}

}  // namespace platform

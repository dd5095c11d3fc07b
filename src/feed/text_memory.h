#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>

namespace feed {

/// Texts in the order in which they came. Beyond `max_texts` or 8 MiB the oldest is forgotten.
class TextMemory {
 public:
  explicit TextMemory(std::size_t max_texts) : max_texts_(max_texts) {}

  [[nodiscard]] const std::deque<std::string>& texts() const { return texts_; }
  [[nodiscard]] bool Holds(std::string_view text) const { return index_.contains(text); }
  /// False, and nothing changes, when the text is held already.
  bool Add(std::string_view text);

 private:
  static constexpr std::size_t kMaxBytes = std::size_t{8} << 20;

  std::size_t max_texts_;
  std::size_t bytes_ = 0;
  std::deque<std::string> texts_;
  std::unordered_set<std::string_view> index_;  // of the texts, which never move
};

}  // namespace feed

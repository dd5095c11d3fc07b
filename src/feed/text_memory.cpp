#include "feed/text_memory.h"

namespace feed {

bool TextMemory::Add(std::string_view text) {
  if (Holds(text)) return false;
  index_.insert(texts_.emplace_back(text));
  bytes_ += text.size();
  while (texts_.size() > max_texts_ || bytes_ > kMaxBytes) {
    bytes_ -= texts_.front().size();
    index_.erase(texts_.front());
    texts_.pop_front();
  }
  return true;
}

}  // namespace feed

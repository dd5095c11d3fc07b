#include "platform/ticker.h"

#include <utility>

#include "base/text.h"

namespace platform {

namespace {

constexpr std::size_t kMaxChars = 500;

}  // namespace

void Ticker::PonerTexto(std::string_view text, std::string_view key, base::Color color, int spacing,
                        std::string_view tag) {
  TickerItem item;
  item.text = base::OneLine(base::CutUtf8(text, kMaxChars));
  item.key = key;
  item.color = color;
  item.spacing = spacing;
  item.tag = tag;
  Append(std::move(item));
}

void Ticker::PonerPicture(Picture picture, std::string_view key, std::string_view tag) {
  TickerItem item;
  item.picture = picture;
  item.key = key;
  item.tag = tag;
  Append(std::move(item));
}

void Ticker::Append(TickerItem item) {
  if (items_.size() >= kMaxItems) items_.erase(items_.begin());
  item.id = ++last_id_;
  items_.push_back(std::move(item));
  Touch();
}

bool Ticker::QuitarItem(std::string_view key) {
  // A copy, as the caller's view may be the key of an item.
  const std::string wanted(key);
  if (std::erase_if(items_, [&](const TickerItem& item) { return item.key == wanted; }) == 0) {
    return false;
  }
  Touch();
  return true;
}

}  // namespace platform

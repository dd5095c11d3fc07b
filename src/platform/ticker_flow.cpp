#include "platform/ticker_flow.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace platform {

std::vector<TickerFlow::Identity> TickerFlow::IdentitiesOf(const std::vector<TickerItem>& items) {
  std::map<std::string_view, std::uint32_t> count;
  std::vector<Identity> identities;
  identities.reserve(items.size());
  for (const TickerItem& item : items) {
    identities.emplace_back(item.key, item.key.empty() ? item.id : count[item.key]++);
  }
  return identities;
}

void TickerFlow::Update(const std::vector<TickerItem>& items) {
  width_ = -1;
  if (pieces_.empty()) return;
  const auto now = IdentitiesOf(items);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    const auto found = std::find(now.begin(), now.end(), identities_[i]);
    if (found == now.end()) continue;
    const TickerItem& item = items[static_cast<std::size_t>(found - now.begin())];
    pieces_[kept] = {item, pieces_[i].left, measure_(item)};
    if (kept != i) identities_[kept] = std::move(identities_[i]);
    ++kept;
  }
  pieces_.resize(kept);
  identities_.resize(kept);
  Push();
}

// A text that has grown pushes what follows; one that has shrunk leaves a gap, so that nothing
// jumps.
void TickerFlow::Push() {
  for (std::size_t i = 1; i < pieces_.size(); ++i) {
    const Piece& before = pieces_[i - 1];
    pieces_[i].left = std::max(pieces_[i].left, before.left + before.width + before.item.spacing);
  }
}

bool TickerFlow::Advance(const std::vector<TickerItem>& items, double pixels, double width) {
  if (width != width_) {
    fits_ = Fits(items, width);
    width_ = width;
  }
  bool moved = Shift(pixels);
  DropGone();
  if (pieces_.size() < items.size() && HasRoom(width)) {
    Enter(items, width);
    moved = true;
  }
  return moved;
}

bool TickerFlow::Fits(const std::vector<TickerItem>& items, double width) const {
  double right = kRest, gap = 0;
  for (const TickerItem& item : items) {
    right += gap + measure_(item);
    if (right > width) return false;
    gap = item.spacing;
  }
  return true;
}

// Where all fit, each piece runs up to the one before it and no further. One that was already on
// its way out goes on.
bool TickerFlow::Shift(double pixels) {
  bool moved = false;
  double limit = kRest;
  for (Piece& piece : pieces_) {
    double left = piece.left - pixels;
    if (fits_ && piece.left >= limit) left = std::max(left, limit);
    moved = moved || left != piece.left;
    piece.left = left;
    limit = left + piece.width + piece.item.spacing;
  }
  return moved;
}

void TickerFlow::DropGone() {
  std::ptrdiff_t gone = 0;
  for (const Piece& piece : pieces_) {
    if (piece.left + piece.width > 0) break;
    ++gone;
  }
  pieces_.erase(pieces_.begin(), pieces_.begin() + gone);
  identities_.erase(identities_.begin(), identities_.begin() + gone);
}

bool TickerFlow::HasRoom(double width) const {
  if (pieces_.empty()) return true;
  const Piece& last = pieces_.back();
  return last.left + last.width + last.item.spacing <= width;
}

void TickerFlow::Enter(const std::vector<TickerItem>& items, double width) {
  auto identities = IdentitiesOf(items);
  std::map<Identity, std::uint64_t> known;  // forgets what is gone
  std::size_t next = items.size();
  std::uint64_t oldest = std::numeric_limits<std::uint64_t>::max();
  for (std::size_t i = 0; i < items.size(); ++i) {
    const auto seen = shown_.find(identities[i]);
    const std::uint64_t turn = seen == shown_.end() ? 0 : seen->second;
    if (turn != 0) known.emplace(identities[i], turn);
    const bool on_strip =
        std::find(identities_.begin(), identities_.end(), identities[i]) != identities_.end();
    if (!on_strip && turn < oldest) {
      oldest = turn;
      next = i;
    }
  }
  shown_ = std::move(known);
  if (next == items.size()) return;
  shown_[identities[next]] = ++turn_;
  pieces_.push_back({items[next], width, measure_(items[next])});
  identities_.push_back(std::move(identities[next]));
}

}  // namespace platform

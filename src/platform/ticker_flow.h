#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/ticker.h"

namespace platform {

/// Where the items of a ticker stand on its strip, in pixels from the left. They enter at the right
/// end one after another, the one that was shown longest ago first, and leave at the left. An item
/// is known by its key (by its id where the key is empty), so one that is taken out and put in
/// again keeps its place, and none stands on the strip twice. Items that all fit side by side come
/// to rest at the left. Keeps copies of what it shows.
class TickerFlow {
 public:
  /// Where the first item rests.
  static constexpr double kRest = 12;

  struct Piece {
    TickerItem item;
    double left = 0, width = 0;
  };
  /// Width of an item in pixels.
  using Measure = std::function<double(const TickerItem& item)>;

  explicit TickerFlow(Measure measure) : measure_(std::move(measure)) {}

  /// Takes over what `items` say of the pieces on the strip; what is gone leaves it. To be called
  /// after every change of the items.
  void Update(const std::vector<TickerItem>& items);
  /// Moves the strip, `width` wide, by `pixels` to the left and fills it from `items`. False when
  /// it stands still and will do so until items or width change.
  [[nodiscard]] bool Advance(const std::vector<TickerItem>& items, double pixels, double width);

  [[nodiscard]] const std::vector<Piece>& pieces() const { return pieces_; }

 private:
  /// Key, and which of the items of that key; or nothing and the id.
  using Identity = std::pair<std::string, std::uint32_t>;

  [[nodiscard]] static std::vector<Identity> IdentitiesOf(const std::vector<TickerItem>& items);
  [[nodiscard]] bool Fits(const std::vector<TickerItem>& items, double width) const;
  [[nodiscard]] bool Shift(double pixels);
  void DropGone();
  [[nodiscard]] bool HasRoom(double width) const;
  void Enter(const std::vector<TickerItem>& items, double width);
  void Push();

  Measure measure_;
  std::vector<Piece> pieces_;         // left to right
  std::vector<Identity> identities_;  // of the pieces
  std::map<Identity, std::uint64_t> shown_;
  std::uint64_t turn_ = 0;
  double width_ = -1;  // of the strip when `fits_` was found; below 0 when it must be found anew
  bool fits_ = false;
};

}  // namespace platform

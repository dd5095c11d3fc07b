#pragma once

#include <array>
#include <cstdint>

#include "demo/random.h"

namespace demo {

/// The five best levels of both sides, best first. Prices fall strictly on the bid side and rise
/// strictly on the ask side, the best bid lies below the best ask, and the price of the last trade
/// between them (both included). A bid level that would cost nothing is empty: price and volume 0.
class OrderBook {
 public:
  static constexpr int kLevels = 5;
  struct Level {
    std::int64_t price = 0;
    std::int32_t volume = 0;
  };
  using Side = std::array<Level, kLevels>;

  /// How far apart levels lie at most, and how many shares one holds at most.
  struct Grain {
    int gap = 1;
    int volume = 1;
  };

  [[nodiscard]] const Side& bids() const { return bids_; }
  [[nodiscard]] const Side& asks() const { return asks_; }

  /// A book with levels of one tick about `price`, for what has no orders of its own. The same
  /// `salt` gives the same volumes.
  [[nodiscard]] static OrderBook OfTicks(std::int64_t price, int tick, std::uint32_t salt);

  /// A fresh book about `price`, which is above 0.
  void Centre(std::int64_t price, Grain grain, Random& random);
  /// Takes shares off the best level of a side, no more than it holds. When that level is used up
  /// the next one becomes best, and mostly the other side follows.
  void TakeAsk(std::int32_t shares, Grain grain, Random& random);
  void TakeBid(std::int32_t shares, Grain grain, Random& random);
  /// An order comes or goes without a trade; `last` is the price of the last trade.
  void Stir(std::int64_t last, Grain grain, Random& random);

 private:
  void RaiseBid(std::int64_t price, Grain grain, Random& random);
  void LowerAsk(std::int64_t price, Grain grain, Random& random);

  Side bids_, asks_;
};

}  // namespace demo

#pragma once

#include <array>
#include <cstdint>

#include "demo/random.h"

namespace demo {

/// How far apart prices lie at and above `price`, in cents. Coarser prices are finer ones too.
[[nodiscard]] std::int64_t PriceStep(std::int64_t price);
[[nodiscard]] std::int64_t StepDown(std::int64_t price);  // to the next price at or below
[[nodiscard]] std::int64_t StepUp(std::int64_t price);

/// The best levels of both sides, best first, up to five. Prices fall strictly on the bid side and
/// rise strictly on the ask side, the best bid lies below the best ask, and the price of the last
/// trade between them (both included). A level where nobody stands is empty: price and volume 0,
/// and so are all behind it. No bid level costs nothing.
class OrderBook {
 public:
  static constexpr int kLevels = 5;
  struct Level {
    std::int64_t price = 0;
    std::int32_t volume = 0;
  };
  using Side = std::array<Level, kLevels>;

  struct Grain {
    int gap = 1;          // how far apart levels lie at most, in price steps
    int volume = 1;       // how many shares one holds at most
    int depth = kLevels;  // how many levels a side has as a rule; below kLevels a side may run dry
  };

  [[nodiscard]] const Side& bids() const { return bids_; }
  [[nodiscard]] const Side& asks() const { return asks_; }
  [[nodiscard]] bool has_bids() const { return bids_.front().price > 0; }
  [[nodiscard]] bool has_asks() const { return asks_.front().price > 0; }

  /// A book with levels of one tick about `price`, for what has no orders of its own. The same
  /// `salt` gives the same volumes.
  [[nodiscard]] static OrderBook OfTicks(std::int64_t price, int tick, std::uint32_t salt);

  /// A fresh book about `price`, which is above 0.
  void Centre(std::int64_t price, Grain grain, Random& random);
  /// Takes shares off the best level of a side, which isn't empty, no more than it holds. When that
  /// level is used up the next one becomes best, and mostly the other side follows.
  void TakeAsk(std::int32_t shares, Grain grain, Random& random);
  void TakeBid(std::int32_t shares, Grain grain, Random& random);
  /// Orders come or go without a trade; `last` is the price of the last trade.
  void Stir(std::int64_t last, Grain grain, Random& random);

 private:
  void AddBid(std::int64_t last, Grain grain, Random& random);
  void AddAsk(std::int64_t last, Grain grain, Random& random);
  void RaiseBid(std::int64_t price, Grain grain, Random& random);
  void LowerAsk(std::int64_t price, Grain grain, Random& random);

  Side bids_, asks_;
};

}  // namespace demo

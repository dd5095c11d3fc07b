#include "demo/order_book.h"

#include <algorithm>

namespace demo {
namespace {

OrderBook::Level NewLevel(std::int64_t price, OrderBook::Grain grain, Random& random) {
  if (price <= 0) return {};
  // Small orders are more frequent than large ones.
  const int most = random.Between(1 + grain.volume / 8, 1 + grain.volume);
  return {price, random.Between(1 + most / 4, most)};
}

void Insert(OrderBook::Side& side, OrderBook::Level level) {
  std::copy_backward(side.begin(), side.end() - 1, side.end());
  side.front() = level;
}

void RemoveBest(OrderBook::Side& side, OrderBook::Level fifth) {
  std::copy(side.begin() + 1, side.end(), side.begin());
  side.back() = fifth;
}

}  // namespace

void OrderBook::Centre(std::int64_t price, Grain grain, Random& random) {
  std::int64_t bid = std::max<std::int64_t>(1, price - random.Below(grain.gap + 1));
  std::int64_t ask = std::max(price, bid + 1) + random.Below(grain.gap);
  for (int i = 0; i < kLevels; ++i) {
    const auto level = static_cast<std::size_t>(i);
    bids_[level] = NewLevel(bid, grain, random);
    asks_[level] = NewLevel(ask, grain, random);
    bid -= random.Between(1, grain.gap);
    ask += random.Between(1, grain.gap);
  }
}

void OrderBook::TakeAsk(std::int32_t shares, Grain grain, Random& random) {
  const std::int64_t price = asks_.front().price;
  asks_.front().volume -= shares;
  if (asks_.front().volume > 0) return;
  RemoveBest(asks_, NewLevel(asks_.back().price + random.Between(1, grain.gap), grain, random));
  if (!random.OneIn(4)) RaiseBid(price - random.Below(grain.gap), grain, random);
}

void OrderBook::TakeBid(std::int32_t shares, Grain grain, Random& random) {
  const std::int64_t price = bids_.front().price;
  bids_.front().volume -= shares;
  if (bids_.front().volume > 0) return;
  RemoveBest(bids_, NewLevel(bids_.back().price - random.Between(1, grain.gap), grain, random));
  if (!random.OneIn(4)) LowerAsk(price + random.Below(grain.gap), grain, random);
}

void OrderBook::Stir(std::int64_t last, Grain grain, Random& random) {
  switch (random.Below(6)) {
    case 0:
      RaiseBid(std::min(last, bids_.front().price + random.Between(1, grain.gap)), grain, random);
      break;
    case 1:
      LowerAsk(std::max(last, asks_.front().price - random.Between(1, grain.gap)), grain, random);
      break;
    default: {
      Side& side = random.OneIn(2) ? bids_ : asks_;
      Level& level = side[random.Place(side.size())];
      level = NewLevel(level.price, grain, random);
    }
  }
}

void OrderBook::RaiseBid(std::int64_t price, Grain grain, Random& random) {
  if (price <= bids_.front().price || price >= asks_.front().price) return;
  Insert(bids_, NewLevel(price, grain, random));
}

void OrderBook::LowerAsk(std::int64_t price, Grain grain, Random& random) {
  if (price >= asks_.front().price || price <= bids_.front().price) return;
  Insert(asks_, NewLevel(price, grain, random));
}

OrderBook OrderBook::OfTicks(std::int64_t price, int tick, std::uint32_t salt) {
  Random random(salt);
  OrderBook book;
  for (int i = 0; i < kLevels; ++i) {
    const auto level = static_cast<std::size_t>(i);
    const std::int64_t away = std::int64_t{tick} * (i + 1);
    book.bids_[level] = NewLevel(price - away, {.volume = 60}, random);
    book.asks_[level] = NewLevel(price + away, {.volume = 60}, random);
  }
  return book;
}

}  // namespace demo

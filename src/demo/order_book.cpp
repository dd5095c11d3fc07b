#include "demo/order_book.h"

#include <algorithm>

namespace demo {
namespace {

constexpr int kStirsPerWithdrawal = 40;  // of all orders of a side, in a thin book

OrderBook::Level NewLevel(std::int64_t price, OrderBook::Grain grain, Random& random) {
  if (price <= 0) return {};
  // Small orders are more frequent than large ones.
  const int most = random.Between(1 + grain.volume / 8, 1 + grain.volume);
  return {price, random.Between(1 + most / 4, most)};
}

// Up to the widest gap, at least one step.
std::int64_t Gap(std::int64_t price, OrderBook::Grain grain, Random& random) {
  return random.Between(1, grain.gap) * PriceStep(price);
}

// How many levels somebody stands at.
std::size_t Count(const OrderBook::Side& side) {
  return static_cast<std::size_t>(
      std::find_if(side.begin(), side.end(), [](const auto& level) { return level.price == 0; }) -
      side.begin());
}

void Insert(OrderBook::Side& side, OrderBook::Level level) {
  std::copy_backward(side.begin(), side.end() - 1, side.end());
  side.front() = level;
}

void RemoveBest(OrderBook::Side& side) {
  std::copy(side.begin() + 1, side.end(), side.begin());
  side.back() = {};
}

// Whether a side has withdrawn, or lost a level that it doesn't have as a rule.
bool Shrink(OrderBook::Side& side, OrderBook::Grain grain, Random& random) {
  const std::size_t levels = Count(side);
  if (grain.depth < OrderBook::kLevels && random.OneIn(kStirsPerWithdrawal)) {
    side = {};
  } else if (levels > static_cast<std::size_t>(grain.depth) && random.OneIn(2)) {
    side[levels - 1] = {};
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::int64_t PriceStep(std::int64_t price) {
  return price < 5'000 ? 1 : price < 10'000 ? 5 : price < 50'000 ? 50 : 100;
}

std::int64_t StepDown(std::int64_t price) { return price - price % PriceStep(price); }

std::int64_t StepUp(std::int64_t price) {
  const std::int64_t below = StepDown(price);
  return below == price ? price : below + PriceStep(price);
}

void OrderBook::Centre(std::int64_t price, Grain grain, Random& random) {
  bids_ = asks_ = {};
  RaiseBid(std::max(PriceStep(price), price - random.Below(grain.gap + 1) * PriceStep(price)),
           grain, random);
  const std::int64_t lowest = std::max(price, bids_.front().price + PriceStep(price));
  LowerAsk(lowest + random.Below(grain.gap) * PriceStep(price), grain, random);
  for (int level = 1; level < grain.depth; ++level) {
    AddBid(price, grain, random);
    AddAsk(price, grain, random);
  }
}

void OrderBook::TakeAsk(std::int32_t shares, Grain grain, Random& random) {
  const std::int64_t price = asks_.front().price;
  asks_.front().volume -= shares;
  if (asks_.front().volume > 0) return;
  RemoveBest(asks_);
  if (grain.depth == kLevels) AddAsk(price, grain, random);
  if (!random.OneIn(4)) RaiseBid(price - random.Below(grain.gap) * PriceStep(price), grain, random);
}

void OrderBook::TakeBid(std::int32_t shares, Grain grain, Random& random) {
  const std::int64_t price = bids_.front().price;
  bids_.front().volume -= shares;
  if (bids_.front().volume > 0) return;
  RemoveBest(bids_);
  if (grain.depth == kLevels) AddBid(price, grain, random);
  if (!random.OneIn(4)) LowerAsk(price + random.Below(grain.gap) * PriceStep(price), grain, random);
}

void OrderBook::Stir(std::int64_t last, Grain grain, Random& random) {
  const bool bid = random.OneIn(2);
  Side& side = bid ? bids_ : asks_;
  if (Shrink(side, grain, random)) return;
  const std::size_t levels = Count(side);
  const std::int64_t best = side.front().price;
  if (levels < static_cast<std::size_t>(grain.depth)) {
    bid ? AddBid(last, grain, random) : AddAsk(last, grain, random);
  } else if (!random.OneIn(3)) {
    Level& level = side[random.Place(levels)];
    level = NewLevel(level.price, grain, random);
  } else if (bid) {
    RaiseBid(std::min(last, best + Gap(best, grain, random)), grain, random);
  } else {
    LowerAsk(std::max(last, best - Gap(best, grain, random)), grain, random);
  }
}

// Behind the last level; in an empty side below or above the last trade.
void OrderBook::AddBid(std::int64_t last, Grain grain, Random& random) {
  const std::size_t levels = Count(bids_);
  if (levels == bids_.size()) return;
  const std::int64_t from = levels > 0 ? bids_[levels - 1].price : last;
  bids_[levels] = NewLevel(StepDown(from - Gap(from - 1, grain, random)), grain, random);
}

void OrderBook::AddAsk(std::int64_t last, Grain grain, Random& random) {
  const std::size_t levels = Count(asks_);
  if (levels == asks_.size()) return;
  const std::int64_t from = levels > 0 ? asks_[levels - 1].price : last;
  asks_[levels] = NewLevel(StepUp(from + Gap(from, grain, random)), grain, random);
}

void OrderBook::RaiseBid(std::int64_t price, Grain grain, Random& random) {
  price = StepDown(price);
  if (price <= bids_.front().price || (has_asks() && price >= asks_.front().price)) return;
  Insert(bids_, NewLevel(price, grain, random));
}

void OrderBook::LowerAsk(std::int64_t price, Grain grain, Random& random) {
  price = StepUp(price);
  if (price <= bids_.front().price || (has_asks() && price >= asks_.front().price)) return;
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

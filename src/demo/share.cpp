#include "demo/share.h"

#include <algorithm>

namespace demo {
namespace {

constexpr std::int64_t kMillion = 1'000'000;
constexpr std::int64_t kMostMove = 140'000;   // the exchange's limit for a day, in millionths
constexpr std::int32_t kMostShares = 30'000;  // what a trade record can tell

std::int64_t Millionths(std::int64_t part, std::int64_t whole) { return part * kMillion / whole; }

}  // namespace

// Busy shares move in smaller steps, and each of their many trades moves the fair price less.
Share::Share(std::size_t slot, int price, int capital, int activity)
    : slot_(slot),
      anchor_(price),
      capital_(capital),
      activity_(activity),
      own_(activity > 15 ? 350 : 900, activity > 15 ? 3000 : 700) {}

void Share::StartDay(const Instrument& state, Random& random) {
  const std::int64_t home = Millionths(anchor_ - state.previous, state.previous) / 6;
  own_.Push(static_cast<int>(std::clamp<std::int64_t>(home, -20'000, 20'000)) - own_.value());
  own_.Push(random.Between(-14'000, 14'000) + random.Between(-9'000, 9'000));
  book_.Centre(state.previous, Grain(state.previous), random);
  ++book_version_;
}

Execution Share::Open(const Instrument& state, int market, Random& random) {
  const std::int64_t price = std::max<std::int64_t>(1, StepDown(Fair(state, market)));
  const OrderBook::Grain grain = Grain(price);
  book_.Centre(price, grain, random);
  ++book_version_;
  return {random.OneIn(2), price, std::min(kMostShares, grain.volume * random.Between(1, 6))};
}

Execution Share::Trade(const Instrument& state, int market, Random& random) {
  own_.Step(random);
  if (!book_.has_bids() && !book_.has_asks()) book_.Centre(state.last, Grain(state.last), random);
  const bool buys = WantsToBuy(state, market, random);
  const OrderBook::Level level = buys ? book_.asks().front() : book_.bids().front();
  const OrderBook::Grain grain = Grain(level.price);
  // One order in three takes all that the level holds.
  const int wanted = random.OneIn(3) ? level.volume : random.Between(1, 1 + level.volume);
  const std::int32_t shares = std::min({wanted, level.volume, kMostShares});
  if (buys) {
    book_.TakeAsk(shares, grain, random);
  } else {
    book_.TakeBid(shares, grain, random);
  }
  ++book_version_;
  return {buys, level.price, shares};
}

void Share::Stir(const Instrument& state, Random& random) {
  book_.Stir(state.last, Grain(state.last), random);
  ++book_version_;
}

std::int64_t Share::Fair(const Instrument& state, int market) const {
  const std::int64_t move = std::clamp<std::int64_t>(market + own_.value(), -90'000, 90'000);
  return (state.previous * (kMillion + move) + kMillion / 2) / kMillion;
}

bool Share::WantsToBuy(const Instrument& state, int market, Random& random) const {
  if (!book_.has_bids()) return true;
  if (!book_.has_asks()) return false;
  const std::int64_t moved = Millionths(state.last - state.previous, state.previous);
  if (moved < -kMostMove) return true;
  if (moved > kMostMove) return false;
  const std::int64_t gap = Grain(state.last).gap * PriceStep(state.last);
  const std::int64_t steps = (Fair(state, market) - state.last) / gap;
  const int pull = static_cast<int>(std::clamp<std::int64_t>(steps * 55, -330, 330));
  return random.Below(1000) < 500 + pull;
}

OrderBook::Grain Share::Grain(std::int64_t price) const {
  // A level of the book holds up to some 8,000 to 90,000 euros, in cents here.
  const std::int64_t money = 800'000 + std::int64_t{activity_} * 200'000;
  return {.gap = static_cast<int>(std::max<std::int64_t>(1, (1 + price / 1500) / PriceStep(price))),
          .volume = static_cast<int>(
              std::clamp<std::int64_t>(money / std::max<std::int64_t>(price, 1), 10, 120'000)),
          .depth = activity_ > 7   ? 5
                   : activity_ > 3 ? 4
                                   : 3};
}

}  // namespace demo

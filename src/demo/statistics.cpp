#include "demo/statistics.h"

namespace demo {
namespace {

using catalogue::Figure;

constexpr std::int64_t kLargeCash = 3'000'000;  // in cents
// Of each side, added to what there is so that the first trades of a day don't throw the balance.
constexpr std::int64_t kEvenCash = 50'000'000;

// In 1/`whole_scale` of the whole; one half while there is nothing.
std::int64_t Part(std::int64_t part, std::int64_t rest, std::int64_t whole_scale) {
  if (part + rest <= 0) return whole_scale / 2;
  const double share = static_cast<double>(part) / static_cast<double>(part + rest);
  return static_cast<std::int64_t>(share * static_cast<double>(whole_scale));
}

std::int64_t CashPart(std::int64_t part, std::int64_t rest, std::int64_t whole_scale) {
  return Part(part + kEvenCash, rest + kEvenCash, whole_scale);
}

}  // namespace

void Statistics::StartDay() {
  const int shares = rising_ + falling_ + equal_;
  *this = {};
  equal_ = shares;
}

void Statistics::Add(const Execution& trade) {
  const std::int64_t cash = trade.price * trade.shares;
  const auto add = [&](Total& total) {
    total.volume += trade.shares;
    total.cash += cash;
  };
  add(trade.bought ? bought_ : sold_);
  if (cash >= kLargeCash) add(trade.bought ? bought_large_ : sold_large_);
  ++trades_;
}

void Statistics::Turn(int before, int now) {
  --CountOf(before);
  ++CountOf(now);
}

int& Statistics::CountOf(int direction) {
  return direction > 0 ? rising_ : direction < 0 ? falling_ : equal_;
}

bool Statistics::Publish(Figure figure, Instrument& state, int now) const {
  const std::int64_t value = ValueOf(figure);
  const Total total = TotalOf(figure);
  if (value <= 0 || (state.is_open() && value == state.last && total.cash == state.cash)) {
    return false;
  }
  state.SetPrice(value, now);
  state.volume = total.volume;
  state.cash = total.cash;
  return true;
}

Statistics::Total Statistics::TotalOf(Figure figure) const {
  switch (figure) {
    case Figure::kSold:
      return sold_;
    case Figure::kBought:
      return bought_;
    case Figure::kSoldLarge:
      return sold_large_;
    case Figure::kBoughtLarge:
      return bought_large_;
    case Figure::kVolume:
    case Figure::kCash:
      return {sold_.volume + bought_.volume, sold_.cash + bought_.cash};
    default:
      return {};
  }
}

// Shares of a whole and counts in 1/100, the parts of buyers and rising shares in 1/1000.
std::int64_t Statistics::ValueOf(Figure figure) const {
  const Total all = TotalOf(Figure::kVolume);
  switch (figure) {
    case Figure::kSold:
      return CashPart(sold_.cash, bought_.cash, 10'000);
    case Figure::kBought:
      return CashPart(bought_.cash, sold_.cash, 10'000);
    case Figure::kSoldLarge:
      return CashPart(sold_large_.cash, bought_large_.cash, 10'000);
    case Figure::kBoughtLarge:
      return CashPart(bought_large_.cash, sold_large_.cash, 10'000);
    case Figure::kBoughtPart:
      return CashPart(bought_.cash, sold_.cash, 100'000);
    case Figure::kBoughtLargePart:
      return CashPart(bought_large_.cash, sold_large_.cash, 100'000);
    case Figure::kRisingPart:
      return Part(rising_, falling_, 100'000);
    case Figure::kVolume:
      return all.volume / 10;
    case Figure::kCash:
      return all.cash / 1000;
    case Figure::kTrades:
      return trades_ * 100;
    case Figure::kRising:
      return rising_ * 100;
    case Figure::kFalling:
      return falling_ * 100;
    case Figure::kEqual:
      return equal_ * 100;
  }
  return 0;
}

}  // namespace demo

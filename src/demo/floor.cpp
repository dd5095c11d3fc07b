#include "demo/floor.h"

#include <algorithm>

namespace demo {
namespace {

int Direction(const Instrument& state) {
  return (state.last > state.previous) - (state.last < state.previous);
}

}  // namespace

Floor::Floor(std::vector<Instrument>& instruments, std::uint32_t seed, bool tell_trades)
    : instruments_(instruments),
      random_(seed, 1),
      option_random_(seed, 2),
      stray_random_(seed, 8),
      clerk_(seed),
      tell_trades_(tell_trades) {}

void Floor::AddShare(Share share, std::vector<std::size_t> baskets) {
  const std::int64_t price = StateOf(share).last;
  for (const std::size_t basket : baskets) baskets_[basket].Add(price * share.capital());
  wheel_.insert(wheel_.end(), static_cast<std::size_t>(share.activity()),
                static_cast<std::uint16_t>(shares_.size()));
  shares_.push_back(share);
  places_.push_back({std::move(baskets), nullptr});
  statistics_.Join();
}

void Floor::StartDay() {
  for (Share& share : shares_) share.StartDay(StateOf(share), random_);
  for (IndexBasket& basket : baskets_) basket.StartDay();
  statistics_.StartDay();
  market_.Push(-market_.value());
}

void Floor::Schedule(int wait, int steps) {
  schedule_.clear();
  for (std::size_t share = 0; share < shares_.size(); ++share) {
    // More of them early.
    const int late = std::min(random_.Below(steps), random_.Below(steps));
    schedule_.push_back({step_ + wait + late, share});
  }
  std::sort(schedule_.begin(), schedule_.end(), [](const auto& a, const auto& b) {
    return a.step != b.step ? a.step > b.step : a.share > b.share;
  });
}

void Floor::RunSchedule(int now, Events& events) {
  ++step_;
  for (; !schedule_.empty() && schedule_.back().step <= step_; schedule_.pop_back()) {
    Execute(schedule_.back().share, now, events);
  }
}

void Floor::OpenAll(int now) {
  Events unheard;
  for (std::size_t share = 0; share < shares_.size(); ++share) Execute(share, now, unheard);
}

void Floor::TradeOne(int now, Events& events) {
  const std::size_t share = Draw();
  if (StateOf(shares_[share]).is_open()) Execute(share, now, events);
}

void Floor::TellStray(Events& events) {
  const Instrument& state = StateOf(shares_[wheel_[stray_random_.Place(wheel_.size())]]);
  if (tell_trades_ && state.is_open()) clerk_.TellStray(state, events.trades);
}

void Floor::StirOne() {
  Share& share = shares_[Draw()];
  share.Stir(StateOf(share), random_);
}

void Floor::Execute(std::size_t number, int now, Events& events) {
  Share& share = shares_[number];
  const Instrument& state = StateOf(share);
  const Execution trade = state.is_open() ? share.Trade(state, market_.value(), random_)
                                          : share.Open(state, market_.value(), random_);
  Record(number, trade, now, events);
}

void Floor::Record(std::size_t number, const Execution& trade, int now, Events& events) {
  const Share& share = shares_[number];
  Instrument& state = StateOf(share);
  const std::int64_t price_before = state.last;
  const int direction_before = Direction(state);
  const int last_told = state.is_open() ? state.time : TapeClerk::kNever;
  if (!state.is_open()) events.opened.push_back(share.slot());
  state.Trade(trade.price, trade.shares, now);

  statistics_.Add(trade);
  if (trade.price != price_before) {
    statistics_.Turn(direction_before, Direction(state));
    for (const std::size_t basket : places_[number].baskets) {
      baskets_[basket].Move((trade.price - price_before) * share.capital());
    }
  }
  events.quotes.push_back(QuoteOf(state));
  if (tell_trades_) clerk_.Tell(state, trade, last_told, events.trades);
  if (const OptionSeries* series = places_[number].options.get()) {
    if (option_random_.OneIn(3)) QuoteOption(*series, trade.price, now, events);
  }
}

void Floor::QuoteOption(const OptionSeries& series, std::int64_t price, int now, Events& events) {
  const auto& option = series.options()[option_random_.Place(series.options().size())];
  Instrument& state = instruments_[option.slot];
  if (!state.is_open()) events.opened.push_back(option.slot);
  state.Trade(OptionSeries::Value(option, price), option_random_.Between(1, 50), now);
  events.options.push_back({option.slot, QuoteOf(state)});
}

const OptionSeries* Floor::Options(std::string_view code, int now) {
  for (std::size_t number = 0; number < shares_.size(); ++number) {
    const Share& share = shares_[number];
    const Instrument& state = StateOf(share);
    // Shares with a suffix, and those that are there for their number only, have none.
    if (state.code.trimmed() != code || code.size() != 3 || share.capital() == 0) continue;
    auto& options = places_[number].options;
    if (!options) options = std::make_unique<OptionSeries>(code, state.last, now, instruments_);
    return options.get();
  }
  return nullptr;
}

}  // namespace demo

#include "demo/board.h"

#include "demo/catalogue.h"

namespace demo {

void Board::AddFollower(std::size_t follower, std::size_t slot) {
  wanders_.emplace_back(catalogue::Followers()[follower].step, 400);
  rota_.push_back({Kind::kFollower, follower, slot});
}

void Board::TellNext(bool in_session, int now, Events& events) {
  for (std::size_t tried = 0; tried < rota_.size(); ++tried) {
    const Entry entry = rota_[next_];
    next_ = (next_ + 1) % rota_.size();
    const std::size_t slot =
        entry.kind == Kind::kBasket ? floor_.baskets()[entry.number].slot() : entry.slot;
    const bool was_open = instruments_[slot].is_open();
    if (!Renew(entry, in_session, now)) continue;
    events.quotes.push_back(QuoteOf(instruments_[slot]));
    if (!was_open) events.opened.push_back(slot);
    return;
  }
}

bool Board::Renew(const Entry& entry, bool in_session, int now) {
  if (entry.kind == Kind::kFollower) return RenewFollower(entry, in_session, now);
  if (!in_session) return false;
  if (entry.kind == Kind::kStatistic) {
    return floor_.statistics().Publish(catalogue::Statistics()[entry.number].figure,
                                       instruments_[entry.slot], now);
  }
  const IndexBasket& basket = floor_.baskets()[entry.number];
  Instrument& state = instruments_[basket.slot()];
  if (state.is_open() && state.last == basket.value()) return false;
  state.SetPrice(basket.value(), now);
  return true;
}

bool Board::RenewFollower(const Entry& entry, bool in_session, int now) {
  const catalogue::Follower& follower = catalogue::Followers()[entry.number];
  if (!in_session && !follower.all_day) return false;
  constexpr std::int64_t kMillion = 1'000'000;
  const std::int64_t base = follower.base != 0 ? follower.base : floor_.baskets().front().value();
  const int over = follower.premium + wanders_[entry.number].Step(random_);
  const std::int64_t price =
      (base * (kMillion + over) / kMillion + follower.tick / 2) / follower.tick * follower.tick;
  Instrument& state = instruments_[entry.slot];
  if (follower.lots > 0) {
    state.Trade(price, random_.Between(1, follower.lots), now);
    return true;
  }
  if (state.is_open() && state.last == price) return false;
  state.SetPrice(price, now);
  return true;
}

}  // namespace demo

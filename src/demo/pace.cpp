#include "demo/pace.h"

#include <algorithm>

namespace demo {
namespace {

constexpr std::int64_t kMillion = 1'000'000;
constexpr int kOpeningHaste = 180, kClosingHaste = 300;  // seconds
constexpr int kSecondsBetweenRushes = 75;

int TakeWhole(std::int64_t& owed) {
  const std::int64_t whole = owed / kMillion;
  owed -= whole * kMillion;
  return static_cast<int>(whole);
}

}  // namespace

Pace::Pace(const FeedOptions& options) : bursts_(options.bursts) {
  const int quotes = std::clamp(options.quotes_per_second, 0, 10'000'000);
  // Indices and the like are worked out a few times a second, however busy the shares are.
  prices_per_second_ = std::min(quotes / 4, 30);
  trades_per_second_ = quotes - prices_per_second_;
}

Pace::Due Pace::Step(const SessionClock& clock, bool new_second, Random& random) {
  Due due;
  if (new_second) rhythm_ = random.Between(400, 1600);
  const std::int64_t part = std::int64_t{SessionClock::kStepMs} * rhythm_;
  owed_prices_ += prices_per_second_ * part;
  due.prices = TakeWhole(owed_prices_);
  if (!clock.is_open()) return due;

  owed_trades_ += trades_per_second_ * part * Haste(clock) / 1000;
  due.trades = TakeWhole(owed_trades_);
  if (!bursts_ || trades_per_second_ == 0) return due;
  if (new_second && rush_ == 0 && random.OneIn(kSecondsBetweenRushes)) {
    rush_ = random.Between(150, 500);
    due.news = true;
  }
  const int rushed = std::min(rush_, random.Between(8, 25));
  rush_ -= rushed;
  due.trades += rushed;
  return due;
}

// In thousandths.
int Pace::Haste(const SessionClock& clock) const {
  if (!bursts_) return 1000;
  const int since = clock.second() - SessionClock::kOpening;
  const int left = SessionClock::kClose - clock.second();
  if (since < kOpeningHaste) return 1000 + 5000 * (kOpeningHaste - since) / kOpeningHaste;
  if (left < kClosingHaste) return 1000 + 3000 * (kClosingHaste - left) / kClosingHaste;
  return 1000;
}

}  // namespace demo

#include "demo/history.h"

#include <algorithm>

#include "demo/order_book.h"

namespace demo {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::weekday;

constexpr sys_days kBeginning = std::chrono::year(1999) / 1 / 4;
constexpr std::int64_t kMillion = 1'000'000;
constexpr std::uint32_t kMarketStream = 32, kShareStream = 33, kFirstDayStream = 34;

bool IsWeekday(sys_days day) {
  return weekday(day) != std::chrono::Saturday && weekday(day) != std::chrono::Sunday;
}

std::int64_t Moved(std::int64_t price, int millionths) {
  return price + price * millionths / kMillion;
}

std::int64_t Traded(const Share& share, std::int64_t price, Random& random) {
  const std::int64_t money = std::int64_t{share.activity()} * (4 + share.activity()) * 36'000'000;
  return 1 + money / price * random.Between(50, 160) / 100;
}

// A day that ends at `close`, after one that ended at `previous`.
DayBar MakeDay(const Share& share, std::int64_t previous, std::int64_t close, Random random) {
  DayBar bar{.close = close};
  bar.open = std::max<std::int64_t>(1, StepDown(Moved(previous, random.Between(-9'000, 9'000))));
  const auto [lower, upper] = std::minmax(bar.open, close);
  bar.high = std::max(upper, StepDown(Moved(upper, random.Below(15'000))));
  bar.low = std::max<std::int64_t>(1, StepDown(Moved(lower, -random.Below(15'000))));
  bar.volume = Traded(share, close, random);
  return bar;
}

}  // namespace

std::vector<HistoryBar> History::Days(std::size_t slot) const {
  std::vector<HistoryBar> bars;
  for (const Day& day : AllDays(slot)) {
    bars.push_back({DateOf(day.day), TimeOf(SessionClock::kClose), day.bar});
  }
  return bars;
}

std::vector<HistoryBar> History::Parts(std::size_t slot) const {
  std::vector<HistoryBar> parts;
  const std::vector<Day> all = AllDays(slot);
  for (std::size_t i = all.size() - std::min(all.size(), kDays); i < all.size(); ++i) {
    Split(all[i], slot, SessionClock::kClose, parts);
  }
  if (market_.ShareAt(slot) != nullptr && market_.instruments()[slot].is_open()) {
    Split({market_.clock().day(), DayOf(market_.instruments()[slot])}, slot,
          market_.clock().second(), parts);
  }
  return parts;
}

int History::MinutesOf(std::size_t slot) const {
  const Share* share = market_.ShareAt(slot);
  return share != nullptr && share->activity() >= 20 ? 5 : 10;
}

std::vector<History::Day> History::AllDays(std::size_t slot) const {
  const Share* share = market_.ShareAt(slot);
  if (share == nullptr) return {};
  std::vector<Day> all = MadeUpDays(*share);
  for (const PastDays::Day& past : market_.past_days().days()) {
    const DayBar& bar = past.bars[slot - market_.first_share()];
    if (bar.open != 0) all.push_back({past.day, bar});
  }
  return all;
}

// From the last one back, so that the price comes out where the market began.
std::vector<History::Day> History::MadeUpDays(const Share& share) const {
  Random common(seed_, kMarketStream), own = Source(share.slot(), sys_days());
  Wander market(10'000, 250), stray(25'000, 250);
  std::vector<Day> made;
  std::int64_t close = share.anchor();
  for (sys_days day = SessionClock::kFirstDay - days(1); day >= kBeginning; day -= days(1)) {
    if (!IsWeekday(day)) continue;
    const int away = std::max(-700'000, market.Step(common) + stray.Step(own));
    const std::int64_t previous = std::max<std::int64_t>(1, StepDown(Moved(share.anchor(), away)));
    made.push_back({day, MakeDay(share, previous, close, Source(share.slot(), day))});
    close = previous;
  }
  std::reverse(made.begin(), made.end());
  return made;
}

// A walk from open to close that touches the high and the low in a part each.
void History::Split(const Day& day, std::size_t slot, int until,
                    std::vector<HistoryBar>& parts) const {
  const int length = MinutesOf(slot) * 60;
  const int count = (std::min(until, SessionClock::kClose) - SessionClock::kOpening) / length;
  if (count < 1) return;
  Random random = Source(slot, day.day + days(1));
  const DayBar& whole = day.bar;
  const int range = static_cast<int>(whole.high - whole.low);
  const auto within = [&](std::int64_t price) {
    return std::clamp(StepDown(std::max<std::int64_t>(price, 1)), whole.low, whole.high);
  };
  // Parts in which nothing moves are to be few: terminals keep no bar of most of them. So a price
  // turns at the high and the low instead of staying there.
  const auto turned = [&](std::int64_t price) {
    if (price > whole.high) price = 2 * whole.high - price;
    return within(price < whole.low ? 2 * whole.low - price : price);
  };
  const auto stretch = [&] {
    return random.Below(3) * PriceStep(whole.open) + random.Below(1 + range / 12);
  };
  const int highest = random.Below(count), lowest = random.Below(count);
  Wander stray(1 + range / 8, 20);
  std::int64_t price = whole.open;
  for (int i = 0; i < count; ++i) {
    const std::int64_t line = whole.open + (whole.close - whole.open) * (i + 1) / count;
    DayBar bar{.open = price};
    bar.close = i + 1 == count ? whole.close : turned(line + stray.Step(random));
    bar.high = i == highest ? whole.high : within(std::max(bar.open, bar.close) + stretch());
    bar.low = i == lowest ? whole.low : within(std::min(bar.open, bar.close) - stretch());
    // StepDown() may have put it below.
    bar.high = std::max({bar.high, bar.open, bar.close});
    bar.low = std::min({bar.low, bar.open, bar.close});
    bar.volume = 1 + whole.volume / count * random.Between(20, 180) / 100;
    parts.push_back({DateOf(day.day), TimeOf(SessionClock::kOpening + i * length), bar});
    price = bar.close;
  }
}

Random History::Source(std::size_t slot, sys_days day) const {
  const auto number = static_cast<std::uint32_t>(day.time_since_epoch().count());
  return Random(seed_ + static_cast<std::uint32_t>(slot) * 0x9E3779B9u,
                number == 0 ? kShareStream : kFirstDayStream + number);
}

}  // namespace demo

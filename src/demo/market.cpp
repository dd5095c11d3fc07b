#include "demo/market.h"

#include <algorithm>

#include "demo/bulletins.h"
#include "demo/catalogue.h"

namespace demo {
namespace {

constexpr int kStepsPerSecond = 1000 / SessionClock::kStepMs;
constexpr int kAuctionSeconds = 45;
constexpr int kAfterClose = 120;  // for how many seconds indices still settle
constexpr std::size_t kBlueChips = 35, kSmallCaps = 40;
constexpr int kStirsPerStep = 2;
constexpr int kSecondsBetweenStrays = 15;

std::int64_t Capital(const catalogue::Share& share) {
  return std::int64_t{share.price} * share.capital;
}

// Place of each share of the catalogue by its capital, 0 for the largest.
std::vector<std::size_t> Ranks() {
  const auto shares = catalogue::Shares();
  std::vector<std::size_t> order(shares.size()), ranks(shares.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return Capital(shares[a]) > Capital(shares[b]);
  });
  for (std::size_t rank = 0; rank < order.size(); ++rank) ranks[order[rank]] = rank;
  return ranks;
}

// The indices of a share, by number: blue chips 0, all 1, small ones 2, sectors from 3.
std::vector<std::size_t> BasketsOf(const catalogue::Share& share, std::size_t rank) {
  std::vector<std::size_t> baskets = {1, 3 + static_cast<std::size_t>(share.sector)};
  if (rank < kBlueChips) baskets.push_back(0);
  if (rank + kSmallCaps >= catalogue::Shares().size()) baskets.push_back(2);
  return baskets;
}

// Three decimals for parts of a whole that charts show.
int ScaleOf(catalogue::Figure figure) {
  using catalogue::Figure;
  return figure == Figure::kBoughtPart || figure == Figure::kBoughtLargePart ||
                 figure == Figure::kRisingPart
             ? 1000
             : 100;
}

}  // namespace

Market::Market(const FeedOptions& options)
    : options_(options),
      clock_(options.start_second),
      floor_(instruments_, options.seed, options.trades),
      board_(instruments_, floor_, options.seed),
      pace_(options),
      random_(options.seed, 5) {
  AddIndices();
  AddShares(options.extra_instruments);
  AddFollowers();
  AddStatistics();
  listed_ = instruments_.size();
  StartDay();
}

std::size_t Market::Add(Instrument instrument, int tick) {
  instrument.time = clock_.time();
  slots_.emplace(instrument.code.trimmed(), instruments_.size());
  instruments_.push_back(instrument);
  ticks_.push_back(tick);
  return instruments_.size() - 1;
}

void Market::AddIndices() {
  const auto add = [this](const catalogue::Index& index) {
    const std::size_t slot = Add({index.code, index.name, 100, index.value});
    floor_.AddIndex(slot, index.value);
    board_.AddBasket(floor_.baskets().size() - 1);
  };
  add(catalogue::BlueChips());
  add(catalogue::General());
  add(catalogue::SmallCaps());
  for (const catalogue::Index& sector : catalogue::Sectors()) add(sector);
}

void Market::AddShares(int extra) {
  const std::vector<std::size_t> ranks = Ranks();
  first_share_ = instruments_.size();
  for (const catalogue::Share& share : catalogue::Shares()) {
    const std::size_t slot = Add({share.code, share.name, 100, share.price});
    const std::size_t rank = ranks[floor_.shares().size()];
    floor_.AddShare(Share(slot, share.price, share.capital, share.activity),
                    BasketsOf(share, rank));
  }
  for (const catalogue::NumberedShare& share : catalogue::NumberedShares(extra)) {
    const auto price = static_cast<int>(StepDown(random_.Between(100, 9000)));
    const std::size_t slot = Add({share.code, share.name, 100, price});
    floor_.AddShare(Share(slot, price, 0, 2), {});
  }
}

void Market::AddFollowers() {
  const auto followers = catalogue::Followers();
  for (std::size_t i = 0; i < followers.size(); ++i) {
    const catalogue::Follower& follower = followers[i];
    const bool traded = follower.lots > 0 || follower.all_day;
    const std::int64_t base = follower.base != 0 ? follower.base : catalogue::BlueChips().value;
    const std::int64_t price = base + base * follower.premium / 1'000'000;
    board_.AddFollower(i, Add({follower.code, follower.name, follower.scale,
                               price / follower.tick * follower.tick},
                              traded ? follower.tick : 0));
  }
}

void Market::AddStatistics() {
  const auto statistics = catalogue::Statistics();
  for (std::size_t i = 0; i < statistics.size(); ++i) {
    const int scale = ScaleOf(statistics[i].figure);
    // Balances begin even.
    const bool is_part = statistics[i].figure <= catalogue::Figure::kRisingPart;
    board_.AddStatistic(
        i, Add({statistics[i].code, statistics[i].name, scale, is_part ? 50 * scale : 0}));
  }
}

void Market::StartDay() {
  for (Instrument& instrument : instruments_) instrument.StartDay(clock_.time());
  floor_.StartDay();
  const int wait = (SessionClock::kOpening - clock_.second()) * kStepsPerSecond;
  if (wait <= 0) {
    floor_.OpenAll(clock_.time());
  } else if (options_.quotes_per_second > 0) {
    floor_.Schedule(wait, kAuctionSeconds * kStepsPerSecond);
  }
}

void Market::Step(Events& events) {
  events.Clear();
  const std::chrono::sys_days today = clock_.day();
  const SessionClock::Passed passed = clock_.Step();
  events.second = passed.second;
  events.day = passed.day;
  if (passed.day) {
    past_days_.Add(today, std::span(instruments_).subspan(first_share_, floor_.shares().size()));
    StartDay();
  }
  if (passed.second) Second(events);

  const int now = clock_.time();
  floor_.RunSchedule(now, events);
  const Pace::Due due = pace_.Step(clock_, passed.second, random_);
  if (due.news) floor_.JumpMarket();
  for (int i = 0; i < due.trades; ++i) floor_.TradeOne(now, events);
  const bool settling = clock_.second() >= SessionClock::kOpening &&
                        clock_.second() < SessionClock::kClose + kAfterClose;
  for (int i = 0; i < due.prices; ++i) board_.TellNext(settling, now, events);
  if (options_.quotes_per_second <= 0) return;
  for (int i = 0; i < kStirsPerStep; ++i) floor_.StirOne();
}

void Market::Second(Events& events) {
  floor_.MoveMarket();
  if (clock_.second() == SessionClock::kClose && options_.quotes_per_second > 0) {
    floor_.Schedule(0, kAuctionSeconds * kStepsPerSecond / 3);
  }
  if (options_.quotes_per_second > 0 && clock_.is_open() && random_.OneIn(kSecondsBetweenStrays)) {
    floor_.TellStray(events);
  }
  bulletins::Announce(clock_, instruments_[floor_.baskets().front().slot()], options_.notices,
                      events.bulletins);
}

bool Market::HasMaster(std::size_t slot) const {
  const std::string_view code = instruments_[slot].code.bytes();
  return code != "STSV   " && code != "STSC   ";
}

std::optional<std::size_t> Market::Find(std::string_view code) const {
  const auto found = slots_.find(std::string(code));
  if (found == slots_.end()) return std::nullopt;
  return found->second;
}

const Share* Market::ShareAt(std::size_t slot) const {
  const std::size_t number = slot - first_share_;
  return slot >= first_share_ && number < floor_.shares().size() ? &floor_.shares()[number]
                                                                 : nullptr;
}

std::optional<OrderBook> Market::Book(std::size_t slot) const {
  if (const Share* share = ShareAt(slot)) return share->book();
  if (ticks_[slot] == 0) return std::nullopt;
  return OrderBook::OfTicks(instruments_[slot].last, ticks_[slot], instruments_[slot].changes);
}

std::uint32_t Market::BookVersion(std::size_t slot) const {
  const Share* share = ShareAt(slot);
  return share != nullptr ? share->book_version() : instruments_[slot].changes;
}

std::vector<std::size_t> Market::OpenOptions(std::string_view code, bool calls) {
  const OptionSeries* series = floor_.Options(code, clock_.time());
  if (series == nullptr) return {};
  std::vector<std::size_t> slots;
  for (const OptionSeries::Option& option : series->options()) {
    if (option.call == calls) slots.push_back(option.slot);
  }
  while (ticks_.size() < instruments_.size()) {
    slots_.emplace(instruments_[ticks_.size()].code.trimmed(), ticks_.size());
    ticks_.push_back(1);
  }
  return slots;
}

}  // namespace demo

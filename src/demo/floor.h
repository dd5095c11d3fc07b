#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "demo/events.h"
#include "demo/index.h"
#include "demo/instrument.h"
#include "demo/option_series.h"
#include "demo/random.h"
#include "demo/share.h"
#include "demo/statistics.h"
#include "demo/tape_clerk.h"

namespace demo {

/// Where the shares trade: it opens and closes them, makes the trades, and keeps the indices, the
/// balances and the options up with them. The table of instruments outlives it; shares, indices and
/// options have a slot each in it.
class Floor {
 public:
  Floor(std::vector<Instrument>& instruments, std::uint32_t seed, bool tell_trades);

  /// Index number `basket` of `baskets()`, in the order of the calls.
  void AddIndex(std::size_t slot, std::int64_t value) { baskets_.emplace_back(slot, value); }
  /// `baskets` are the numbers of the indices that it belongs to.
  void AddShare(Share share, std::vector<std::size_t> baskets);
  /// Makes the books and draws the overnight news; once at first, and at each new day.
  void StartDay();

  /// From now on shares trade once each, within `steps` steps from `wait` steps on.
  void Schedule(int wait, int steps);
  void RunSchedule(int now, Events& events);
  void OpenAll(int now);
  /// One trade in a share drawn by its activity; none when that share hasn't opened.
  void TradeOne(int now, Events& events);
  /// Puts a record on the tape that is no trade.
  void TellStray(Events& events);
  void StirOne();
  /// The general mood moves on by a second, or jumps.
  void MoveMarket() { market_.Step(random_); }
  void JumpMarket() { market_.Push(random_.Between(-1500, 1500)); }

  /// The options on a share of the catalogue, opened at the first call; nothing for any other code.
  [[nodiscard]] const OptionSeries* Options(std::string_view code, int now);

  [[nodiscard]] std::span<const IndexBasket> baskets() const { return baskets_; }
  [[nodiscard]] std::span<const Share> shares() const { return shares_; }
  [[nodiscard]] const Statistics& statistics() const { return statistics_; }

 private:
  struct Place {
    std::vector<std::size_t> baskets;
    std::unique_ptr<OptionSeries> options;
  };

  [[nodiscard]] Instrument& StateOf(const Share& share) { return instruments_[share.slot()]; }
  [[nodiscard]] std::size_t Draw() { return wheel_[random_.Place(wheel_.size())]; }
  void Execute(std::size_t share, int now, Events& events);
  void Record(std::size_t share, const Execution& trade, int now, Events& events);
  void QuoteOption(const OptionSeries& series, std::int64_t price, int now, Events& events);

  std::vector<Instrument>& instruments_;
  Random random_, option_random_, stray_random_;
  TapeClerk clerk_;
  bool tell_trades_;
  Wander market_{200, 4000};  // in millionths of yesterday's close
  std::vector<Share> shares_;
  std::vector<Place> places_;         // beside `shares_`
  std::vector<std::uint16_t> wheel_;  // each share as often as it is active
  std::vector<IndexBasket> baskets_;
  Statistics statistics_;
  struct Appointment {
    std::int64_t step;
    std::size_t share;
  };
  std::vector<Appointment> schedule_;  // the next one last
  std::int64_t step_ = 0;
};

}  // namespace demo

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "demo/board.h"
#include "demo/events.h"
#include "demo/feed_options.h"
#include "demo/floor.h"
#include "demo/instrument.h"
#include "demo/order_book.h"
#include "demo/pace.h"
#include "demo/past_days.h"
#include "demo/session_clock.h"

namespace demo {

/// The whole simulated market: all instruments, the clock, and what happens. Prices don't depend on
/// who looks, and the same options give the same market. A slot is a place in `instruments()`,
/// which only grows.
class Market {
 public:
  explicit Market(const FeedOptions& options);
  Market(const Market&) = delete;
  Market& operator=(const Market&) = delete;

  /// Time goes on by SessionClock::kStepMs. `events` is cleared first.
  void Step(Events& events);

  [[nodiscard]] const SessionClock& clock() const { return clock_; }
  [[nodiscard]] const std::vector<Instrument>& instruments() const { return instruments_; }
  /// Slots that everybody gets at once; options are not among them.
  [[nodiscard]] std::size_t listed() const { return listed_; }
  /// False for the two balances that terminals make a record of by themselves.
  [[nodiscard]] bool HasMaster(std::size_t slot) const;
  /// By the code without its blanks.
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view code) const;

  /// Nothing for what isn't a share.
  [[nodiscard]] const Share* ShareAt(std::size_t slot) const;
  /// The days that went by since the start; shares are numbered as on the floor, from
  /// `first_share()` on.
  [[nodiscard]] const PastDays& past_days() const { return past_days_; }
  [[nodiscard]] std::size_t first_share() const { return first_share_; }

  /// The order book; nothing for what isn't traded, as an index.
  [[nodiscard]] std::optional<OrderBook> Book(std::size_t slot) const;
  /// Changes with the book.
  [[nodiscard]] std::uint32_t BookVersion(std::size_t slot) const;

  /// Slots of the calls or puts on a share; empty for what has no options.
  [[nodiscard]] std::vector<std::size_t> OpenOptions(std::string_view code, bool calls);

 private:
  std::size_t Add(Instrument instrument, int tick = 0);
  void AddShares(int extra);
  void AddIndices();
  void AddFollowers();
  void AddStatistics();
  void StartDay();
  void Second(Events& events);

  FeedOptions options_;
  SessionClock clock_;
  std::vector<Instrument> instruments_;
  std::vector<int> ticks_;  // beside it: distance of book levels, 0 for none of its own
  std::unordered_map<std::string, std::size_t> slots_;  // by trimmed code
  std::size_t first_share_ =
      0;  // the slots of the shares stand in a row, in the order of the floor
  Floor floor_;
  Board board_;
  Pace pace_;
  Random random_;
  PastDays past_days_;
  std::size_t listed_ = 0;
};

}  // namespace demo

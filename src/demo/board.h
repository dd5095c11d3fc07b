#pragma once

#include <cstddef>
#include <vector>

#include "demo/events.h"
#include "demo/floor.h"
#include "demo/instrument.h"
#include "demo/random.h"

namespace demo {

/// Tells, in turn, what only follows the shares or has no session of its own: indices, balances,
/// futures and currencies. The table of instruments and the floor outlive it.
class Board {
 public:
  Board(std::vector<Instrument>& instruments, const Floor& floor, std::uint32_t seed)
      : instruments_(instruments), floor_(floor), random_(seed, 4) {}

  /// Places in the tables of the catalogue and in `floor.baskets()`. The first basket is the index
  /// that futures follow.
  void AddBasket(std::size_t basket) { rota_.push_back({Kind::kBasket, basket, 0}); }
  void AddFollower(std::size_t follower, std::size_t slot);
  void AddStatistic(std::size_t statistic, std::size_t slot) {
    rota_.push_back({Kind::kStatistic, statistic, slot});
  }

  /// The next price that has changed, if any has. `in_session` is false while only what goes on all
  /// day moves.
  void TellNext(bool in_session, int now, Events& events);

 private:
  enum class Kind { kBasket, kFollower, kStatistic };
  struct Entry {
    Kind kind;
    std::size_t number, slot;
  };

  [[nodiscard]] bool Renew(const Entry& entry, bool in_session, int now);
  [[nodiscard]] bool RenewFollower(const Entry& entry, bool in_session, int now);

  std::vector<Instrument>& instruments_;
  const Floor& floor_;
  Random random_;
  std::vector<Wander> wanders_;  // of the followers
  std::vector<Entry> rota_;
  std::size_t next_ = 0;
};

}  // namespace demo

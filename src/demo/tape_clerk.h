#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "demo/events.h"
#include "demo/instrument.h"
#include "demo/random.h"
#include "demo/share.h"

namespace demo {

/// Writes the tape as untidily as a real one: opening trades and crosses of one member have no
/// side, some trades are told late and bear an earlier second than one told before, and between
/// them stand records that are no trades. What is told late or without a side counts like any
/// other.
class TapeClerk {
 public:
  static constexpr int kNever = -1;

  explicit TapeClerk(std::uint32_t seed) : members_(seed, 3), random_(seed, 7) {}

  /// `state` has taken the trade in; `last_told` is the second (HHMMSS) of the one before in that
  /// share, or kNever.
  void Tell(const Instrument& state, const Execution& trade, int last_told,
            std::vector<TradeEvent>& tape);
  /// The next kind of record that a terminal refuses, by its hour or a member number, with the
  /// share and the price of a good one.
  void TellStray(const Instrument& state, std::vector<TradeEvent>& tape);

 private:
  [[nodiscard]] int Member();

  Random members_, random_;
  std::size_t strays_ = 0;
};

}  // namespace demo

#pragma once

#include <cstddef>
#include <cstdint>

#include "demo/instrument.h"
#include "demo/order_book.h"
#include "demo/random.h"

namespace demo {

/// One trade.
struct Execution {
  bool bought = false;  // the buyer met a waiting seller
  std::int64_t price = 0;
  std::int32_t shares = 0;  // 1 to 30000
};

/// How one share trades: a price that follows the market and strays by itself, drawn to where it
/// would be fair, and the order book that the trades eat from. The numbers of the day stand in its
/// Instrument.
class Share {
 public:
  /// `price` in cents, above 0.
  Share(std::size_t slot, int price, int capital, int activity);

  [[nodiscard]] std::size_t slot() const { return slot_; }
  [[nodiscard]] int anchor() const { return anchor_; }
  [[nodiscard]] int capital() const { return capital_; }
  [[nodiscard]] int activity() const { return activity_; }
  [[nodiscard]] const OrderBook& book() const { return book_; }
  [[nodiscard]] std::uint32_t book_version() const { return book_version_; }

  /// A new day: overnight news and a book about the previous close.
  void StartDay(const Instrument& state, Random& random);
  /// The opening auction. `market` is how far the whole market stands from yesterday, in
  /// millionths.
  Execution Open(const Instrument& state, int market, Random& random);
  /// One trade against the book.
  Execution Trade(const Instrument& state, int market, Random& random);
  /// A movement of the book without a trade.
  void Stir(const Instrument& state, Random& random);
  /// News: the fair price jumps by `millionths`.
  void Push(int millionths) { own_.Push(millionths); }

 private:
  [[nodiscard]] std::int64_t Fair(const Instrument& state, int market) const;
  [[nodiscard]] bool WantsToBuy(const Instrument& state, int market, Random& random) const;
  [[nodiscard]] OrderBook::Grain Grain(std::int64_t price) const;

  std::size_t slot_;
  int anchor_;    // where the price belongs in the long run, in cents
  int capital_;   // millions of shares
  int activity_;  // 1 to 40
  Wander own_;    // in millionths of the previous close
  OrderBook book_;
  std::uint32_t book_version_ = 0;
};

}  // namespace demo

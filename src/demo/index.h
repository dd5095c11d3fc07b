#pragma once

#include <cstddef>
#include <cstdint>

namespace demo {

/// An index: its value at the last close, moved as the capital of its shares has moved since.
/// Exact, however many moves are added up.
class IndexBasket {
 public:
  /// `value` in 1/100 at the previous close, above 0.
  IndexBasket(std::size_t slot, std::int64_t value) : slot_(slot), close_value_(value) {}

  [[nodiscard]] std::size_t slot() const { return slot_; }

  /// A share joins: its price times its weight.
  void Add(std::int64_t capital) {
    close_capital_ += capital;
    capital_ += capital;
  }
  /// The price change of a share times its weight.
  void Move(std::int64_t capital) { capital_ += capital; }
  /// What stands now becomes the previous close.
  void StartDay() {
    close_value_ = value();
    close_capital_ = capital_;
  }
  [[nodiscard]] std::int64_t value() const {
    return close_capital_ > 0 ? close_value_ * capital_ / close_capital_ : close_value_;
  }

 private:
  std::size_t slot_;
  std::int64_t close_value_;
  std::int64_t close_capital_ = 0;
  std::int64_t capital_ = 0;
};

}  // namespace demo

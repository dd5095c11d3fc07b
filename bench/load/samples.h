#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace load {

using Clock = std::chrono::steady_clock;

/// Times in milliseconds.
class Samples {
 public:
  Samples() { times_.reserve(1 << 16); }  // so that keeping them is not what grows

  void Add(Clock::duration time) {
    times_.push_back(std::chrono::duration<double, std::milli>(time).count());
  }
  [[nodiscard]] std::size_t size() const { return times_.size(); }
  /// `share` from 0 (shortest) to 1 (longest); 0 when there are none.
  [[nodiscard]] double At(double share) const {
    if (times_.empty()) return 0;
    std::vector<double> sorted = times_;
    std::sort(sorted.begin(), sorted.end());
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
  }

 private:
  std::vector<double> times_;
};

}  // namespace load

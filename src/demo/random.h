#pragma once

#include <cstddef>
#include <cstdint>

namespace demo {

/// Seeded source of random numbers with the same sequence on every machine and library. Not for
/// secrets. Copies go on from the same place.
class Random {
 public:
  /// Different `stream`s of one seed are independent.
  explicit constexpr Random(std::uint32_t seed, std::uint32_t stream = 0)
      : state_((std::uint64_t{stream} << 32 | seed) * 0xD1B54A32D192ED03u + 0x8CB92BA72F3D8DD7u) {}

  [[nodiscard]] constexpr std::uint32_t Next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return static_cast<std::uint32_t>(mixed >> 32);
  }
  /// 0 to `limit` - 1; 0 when `limit` is below 1.
  [[nodiscard]] constexpr int Below(int limit) {
    if (limit < 1) return 0;
    return static_cast<int>(std::uint64_t{Next()} * static_cast<std::uint32_t>(limit) >> 32);
  }
  /// `low` to `high`, both included.
  [[nodiscard]] constexpr int Between(int low, int high) { return low + Below(high - low + 1); }
  /// A place in a table of `count` entries, which isn't empty.
  [[nodiscard]] constexpr std::size_t Place(std::size_t count) {
    return static_cast<std::size_t>(std::uint64_t{Next()} * count >> 32);
  }
  [[nodiscard]] constexpr bool OneIn(int count) { return Below(count) == 0; }

 private:
  std::uint64_t state_;
};

/// A value that strays from 0 by steps of up to `step` and is drawn back by its 1/`pull` part.
class Wander {
 public:
  constexpr Wander(int step, int pull) : step_(step), pull_(pull) {}

  constexpr int Step(Random& random) {
    value_ += random.Between(-step_, step_) - value_ / pull_;
    return value_;
  }
  constexpr void Push(int by) { value_ += by; }
  [[nodiscard]] constexpr int value() const { return value_; }

 private:
  int step_, pull_;
  int value_ = 0;
};

}  // namespace demo

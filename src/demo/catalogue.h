#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What is traded in the simulated market. All companies are invented. Codes and names are UTF-8;
// names have at most 20 characters and no lower-case letters.
namespace demo::catalogue {

struct Share {
  std::string_view code;
  std::string_view name;
  int sector;    // place in Sectors()
  int price;     // in cents, before the first day
  int capital;   // millions of shares: its weight in the indices
  int activity;  // 1 (hardly ever) to 40 (many times a minute)
};

struct Index {
  std::string_view code;
  std::string_view name;
  int value;  // in hundredths, before the first day
};

/// A price that follows the blue-chip index, or strays about a base of its own.
struct Follower {
  std::string_view code;
  std::string_view name;
  int scale;
  std::int64_t base;  // in 1/scale; 0 for the index
  int premium;        // over the base, in millionths
  int step;           // of its own wandering, in millionths
  int tick;           // in 1/scale
  int lots;           // most contracts a trade; 0 for a price without trades
  bool all_day;       // also outside the session
};

enum class Figure {
  kSold,
  kBought,
  kSoldLarge,
  kBoughtLarge,
  kBoughtPart,
  kBoughtLargePart,
  kRisingPart,
  kVolume,
  kCash,
  kTrades,
  kRising,
  kFalling,
  kEqual,
};

/// Balances of the whole market. The first two have no master record: terminals make their own.
struct Statistic {
  Figure figure;
  std::string_view code;
  std::string_view name;
};

[[nodiscard]] std::span<const Share> Shares();
[[nodiscard]] std::span<const Index> Sectors();
/// Of the blue chips, of all shares, and of the smallest.
[[nodiscard]] const Index& BlueChips();
[[nodiscard]] const Index& General();
[[nodiscard]] const Index& SmallCaps();
[[nodiscard]] std::span<const Follower> Followers();
[[nodiscard]] std::span<const Statistic> Statistics();

struct NumberedShare {
  std::string code, name;
};
/// `count` further shares for load tests, with codes that no other share has.
[[nodiscard]] std::vector<NumberedShare> NumberedShares(int count);

}  // namespace demo::catalogue

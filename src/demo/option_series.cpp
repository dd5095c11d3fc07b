#include "demo/option_series.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace demo {
namespace {

constexpr int kStrikes = 5;

struct Maturity {
  char letter;
  std::string_view name;
  int months;
};
constexpr Maturity kMaturities[] = {{'J', "JUN", 1}, {'S', "SEP", 4}};

// The round distance between strikes, near a twentieth of the price.
std::int64_t StrikeDistance(std::int64_t price) {
  constexpr std::int64_t kRound[] = {5, 10, 20, 25, 50, 100, 200, 250, 500};
  for (const std::int64_t distance : kRound) {
    if (distance * 25 >= price) return distance;
  }
  return 1000;
}

std::string Euros(std::int64_t cents) {
  return std::to_string(cents / 100) + "." + std::to_string(100 + cents % 100).substr(1);
}

}  // namespace

OptionSeries::OptionSeries(std::string_view code, std::int64_t price, int now,
                           std::vector<Instrument>& instruments) {
  const std::int64_t distance = StrikeDistance(price);
  const std::int64_t lowest = std::max<std::int64_t>(1, price / distance - kStrikes / 2);
  for (const bool call : {true, false}) {
    const std::string letter = call ? "C" : "P";
    for (const Maturity& maturity : kMaturities) {
      for (int i = 0; i < kStrikes; ++i) {
        const Option option = {.slot = instruments.size(),
                               .call = call,
                               .strike = (lowest + i) * distance,
                               .months = maturity.months};
        const std::string end = {maturity.letter, static_cast<char>('1' + i)};
        instruments.emplace_back("." + letter + std::string(code) + end,
                                 letter + " " + std::string(code) + " " +
                                     std::string(maturity.name) + " " + Euros(option.strike),
                                 100, Value(option, price));
        instruments.back().time = now;
        options_.push_back(option);
      }
    }
  }
}

// Intrinsic value, and time value that is greatest at the money.
std::int64_t OptionSeries::Value(const Option& option, std::int64_t price) {
  const std::int64_t gain = option.call ? price - option.strike : option.strike - price;
  const std::int64_t most = price * (2 + option.months) / 100 + 1;
  const std::int64_t time_value = most * most / (most + std::abs(gain));
  return std::max<std::int64_t>(1, std::max<std::int64_t>(gain, 0) + time_value);
}

}  // namespace demo

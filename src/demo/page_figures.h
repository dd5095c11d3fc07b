#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "demo/instrument.h"

// Numbers and dates as the pages show them.
namespace demo::pages {

/// A price of `state`, with as many decimals as its scale has.
[[nodiscard]] std::string PriceText(const Instrument& state, std::int64_t units);
/// How far the last price stands from the close before, in percent; 0 without one.
[[nodiscard]] double ChangeOf(const Instrument& state);
[[nodiscard]] std::string ChangeText(const Instrument& state);
[[nodiscard]] std::string CountText(std::int64_t count);
/// Cash in thousands.
[[nodiscard]] std::string ThousandsText(double cash);
/// HHMMSS.
[[nodiscard]] std::string TimeText(int time);
/// "miércoles 17/05/00"
[[nodiscard]] std::string DayText(std::chrono::sys_days day);

}  // namespace demo::pages

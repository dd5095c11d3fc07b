#pragma once

#include <string>
#include <string_view>

#include "demo/market.h"

// The pages of information that terminals ask for.
namespace demo::pages {

/// The page of that number, made from the market as it stands: 25 lines of 80 bytes of Windows-1252
/// without a byte below 32. Where there is no such page, one that says so. `number` is what a
/// terminal has sent, any bytes.
[[nodiscard]] std::string Make(const Market& market, std::string_view number);

}  // namespace demo::pages

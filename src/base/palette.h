#pragma once

#include <cstdint>

namespace base {

/// A colour as records hold it: 0 to 15 is a number of the classic palette, any other value is
/// 00BBGGRR (the top byte is ignored).
using Color = std::int32_t;

namespace palette {
inline constexpr Color kBlack = 0, kBlue = 1, kGreen = 2, kCyan = 3, kRed = 4, kMagenta = 5,
                       kYellow = 6, kWhite = 7, kGrey = 8, kLightBlue = 9, kLightGreen = 10,
                       kLightCyan = 11, kLightRed = 12, kLightMagenta = 13, kLightYellow = 14,
                       kBrightWhite = 15;
}  // namespace palette

/// 0xRRGGBB of a colour, for whoever paints.
[[nodiscard]] std::uint32_t RgbOf(Color color);

/// 0xRRGGBB as a colour 00BBGGRR. The darkest reds would read as palette numbers: they become the
/// nearest colour that doesn't.
[[nodiscard]] Color ColorOfRgb(std::uint32_t rgb);

/// True for 0 to 15.
[[nodiscard]] constexpr bool IsPaletteNumber(double number) { return number >= 0 && number <= 15; }

}  // namespace base

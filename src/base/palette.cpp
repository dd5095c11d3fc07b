#include "base/palette.h"

#include <array>

namespace base {

std::uint32_t RgbOf(Color color) {
  static constexpr std::array<std::uint32_t, 16> kPalette = {
      0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
      0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
  const auto bits = static_cast<std::uint32_t>(color);
  if (bits < kPalette.size()) return kPalette[bits];
  return (bits & 0xFFu) << 16 | (bits & 0xFF00u) | (bits >> 16 & 0xFFu);
}

Color ColorOfRgb(std::uint32_t rgb) {
  constexpr std::uint32_t kDarkestRed = 0x10;
  const std::uint32_t bits = (rgb & 0xFFu) << 16 | (rgb & 0xFF00u) | (rgb >> 16 & 0xFFu);
  if (bits >= kDarkestRed) return static_cast<Color>(bits);
  return bits < kDarkestRed / 2 ? palette::kBlack : static_cast<Color>(kDarkestRed);
}

}  // namespace base

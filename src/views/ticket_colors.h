#pragma once

#include "base/palette.h"

// The colours of quote tickets and their books. They never change.
namespace views::ticket_colors {

using base::Color;
namespace palette = base::palette;

inline constexpr Color ColorSube = palette::kGreen;               // a value that rose
inline constexpr Color ColorBaja = palette::kRed;                 // a value that fell
inline constexpr Color ColorFondoLibro = palette::kWhite;         // book labels at rest
inline constexpr Color ColorFondoTicket = palette::kBrightWhite;  // back of the quote labels
inline constexpr Color ColorTextoTicket = palette::kBrightWhite;  // their text before any quote
inline constexpr Color ColorTextoSube = palette::kGreen;          // at or above the previous close
inline constexpr Color ColorTextoBaja = palette::kRed;            // below the previous close
inline constexpr Color ColorMejorMedia = palette::kRed;           // price better than the average
inline constexpr Color ColorPeorMedia = palette::kBlue;           // price worse than the average
inline constexpr Color ColorVolumenSube = palette::kBrightWhite;  // volume against the stored one
inline constexpr Color ColorVolumenIgual = palette::kBrightWhite;
inline constexpr Color ColorVolumenBaja = palette::kRed;

}  // namespace views::ticket_colors

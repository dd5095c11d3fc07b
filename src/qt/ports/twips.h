#pragma once

#include <QRect>

#include "platform/control.h"

namespace qt {

constexpr int kTwipsAPixel = 15;

[[nodiscard]] constexpr int ToTwips(int pixels) { return pixels * kTwipsAPixel; }
/// The nearest pixel, halves up.
[[nodiscard]] constexpr int ToPixels(int twips) {
  const int shifted = twips + kTwipsAPixel / 2;
  return shifted >= 0 ? shifted / kTwipsAPixel : -((-shifted + kTwipsAPixel - 1) / kTwipsAPixel);
}

[[nodiscard]] inline platform::Rect ToTwips(const QRect& place) {
  return {ToTwips(place.left()), ToTwips(place.top()), ToTwips(place.width()),
          ToTwips(place.height())};
}
[[nodiscard]] inline QRect ToPixels(const platform::Rect& rect) {
  return {ToPixels(rect.left), ToPixels(rect.top), ToPixels(rect.width), ToPixels(rect.height)};
}

}  // namespace qt

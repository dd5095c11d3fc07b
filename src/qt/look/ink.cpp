#include "qt/look/ink.h"

#include <algorithm>

#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr double kReadable = 3;

double Square(double part) { return part * part; }

/// How bright a colour looks, 0 to 1.
double Brightness(const QColor& color) {
  return 0.2126 * Square(color.redF()) + 0.7152 * Square(color.greenF()) +
         0.0722 * Square(color.blueF());
}

/// 1 for the same brightness to 21 for black and white.
double Contrast(double one, double other) {
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

}  // namespace

std::optional<QColor> EdgeFor(const QColor& ink, const QColor& ground) {
  const double bright = Brightness(ink);
  if (Contrast(bright, Brightness(ground)) >= kReadable) return std::nullopt;
  const bool dark_edge = Contrast(bright, 0) > Contrast(bright, 1);
  return Mix(dark_edge ? Qt::black : Qt::white, ground, 0.1);
}

}  // namespace qt

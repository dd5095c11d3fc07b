#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include "base/palette.h"

class QApplication;

namespace qt {

// Colours of everything around the market data, which brings its own.
namespace tone {
inline constexpr QColor kGround{0x0e, 0x12, 0x18};  // behind the windows
inline constexpr QColor kWindow{0x15, 0x1a, 0x22};
inline constexpr QColor kRaised{0x23, 0x2b, 0x37};  // buttons, fields
inline constexpr QColor kLine{0x32, 0x3d, 0x4d};
inline constexpr QColor kText{0xe8, 0xec, 0xf2};
inline constexpr QColor kMuted{0x9a, 0xa7, 0xb8};
inline constexpr QColor kAccent{0x3f, 0xc1, 0xb0};
inline constexpr QColor kOnAccent{0x04, 0x22, 0x1e};
inline constexpr QColor kGood{0x3d, 0xd6, 0x8c};
inline constexpr QColor kBusy{0x5a, 0xb2, 0xff};
inline constexpr QColor kBad{0xff, 0x5c, 0x5c};
inline constexpr QColor kAlert{0xff, 0xc0, 0x4d};  // bells
}  // namespace tone

/// Style, palette, fonts and icon of the whole program, which takes nothing of them from the
/// desktop, whatever the palette before was. Call it before the first window.
void ApplyTheme(QApplication& application);

[[nodiscard]] inline QColor ColorOf(base::Color color) {
  return QColor::fromRgb(base::RgbOf(color));
}

/// `share` (0 to 1) of `over` laid on `under`.
[[nodiscard]] QColor Mix(const QColor& under, const QColor& over, double share);

/// The program's font in another size and weight. All figures are of one width and nothing is
/// kerned, so that numbers stand below each other and do not dance.
[[nodiscard]] QFont FontOf(double points, QFont::Weight weight = QFont::Normal);

// The few fonts in use: each costs a millisecond when it is first drawn.
[[nodiscard]] inline QFont TextFont() { return FontOf(10); }
[[nodiscard]] inline QFont SmallFont() { return FontOf(9); }
[[nodiscard]] inline QFont StrongFont() { return FontOf(10.5, QFont::Medium); }
[[nodiscard]] inline QFont TitleFont() { return FontOf(18, QFont::Medium); }

}  // namespace qt

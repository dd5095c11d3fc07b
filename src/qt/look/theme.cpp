#include "qt/look/theme.h"

#include <cmath>

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>

#include "qt/look/pictures.h"
#include "qt/look/style.h"

namespace qt {
namespace {

QPalette Tones() {
  QPalette palette;
  const auto set = [&palette](QPalette::ColorRole role, const QColor& color) {
    palette.setColor(QPalette::All, role, color);
  };
  set(QPalette::Window, tone::kWindow);
  set(QPalette::WindowText, tone::kText);
  set(QPalette::Base, tone::kRaised);
  set(QPalette::AlternateBase, tone::kWindow);
  set(QPalette::Text, tone::kText);
  set(QPalette::PlaceholderText, tone::kMuted);
  set(QPalette::Button, tone::kRaised);
  set(QPalette::ButtonText, tone::kText);
  set(QPalette::BrightText, Qt::white);
  set(QPalette::ToolTipBase, tone::kRaised);
  set(QPalette::ToolTipText, tone::kText);
  set(QPalette::Highlight, tone::kAccent);
  set(QPalette::HighlightedText, tone::kOnAccent);
  set(QPalette::Link, tone::kAccent);
  set(QPalette::LinkVisited, tone::kAccent);
  set(QPalette::Light, tone::kLine);
  set(QPalette::Midlight, tone::kRaised);
  set(QPalette::Mid, tone::kLine);
  set(QPalette::Dark, tone::kGround);
  set(QPalette::Shadow, Qt::black);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, Mix(tone::kWindow, tone::kMuted, 0.6));
  }
  return palette;
}

}  // namespace

void ApplyTheme(QApplication& application) {
  for (const char* face : {"Regular", "Medium"}) {
    QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/Roboto-%1.ttf").arg(face));
  }
  // The desktop's colours and fonts, light or dark, don't come back later, nor with its own boxes.
  QApplication::setDesktopSettingsAware(false);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication::setStyle(new Style);
  QApplication::setPalette(Tones());
  QApplication::setFont(TextFont());
  application.setWindowIcon(ProgramIcon());
}

QColor Mix(const QColor& under, const QColor& over, double share) {
  const auto part = [share](int a, int b) {
    return static_cast<int>(std::lround(a + (b - a) * share));
  };
  return {part(under.red(), over.red()), part(under.green(), over.green()),
          part(under.blue(), over.blue())};
}

QFont FontOf(double points, QFont::Weight weight) {
  QFont font;
  font.setFamilies({QStringLiteral("Roboto"), QStringLiteral("DejaVu Sans")});
  font.setPointSizeF(points);
  font.setWeight(weight);
  font.setKerning(false);
  return font;
}

}  // namespace qt

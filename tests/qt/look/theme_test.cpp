#include "qt/look/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>
#include <QToolTip>
#include <QWidget>

namespace {

TEST(Theme, NothingOfTheDesktopsPaletteShows) {
  QPalette desktop;
  for (int role = 0; role < QPalette::NColorRoles; ++role) {
    desktop.setColor(QPalette::All, QPalette::ColorRole(role), Qt::magenta);
  }
  QApplication::setPalette(desktop);
  const char* const classes[] = {nullptr, "QMenu", "QLabel", "QAbstractItemView", "QLineEdit"};
  for (const char* name : classes) QApplication::setPalette(desktop, name);
  QToolTip::setPalette(desktop);
  qt::ApplyTheme(*qApp);
  for (const char* name : classes) {
    const QPalette own = name ? QApplication::palette(name) : QApplication::palette();
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
      if (role == QPalette::NoRole) continue;
      EXPECT_NE(own.color(QPalette::Disabled, QPalette::ColorRole(role)), QColor(Qt::magenta))
          << (name ? name : "all") << ' ' << role;
    }
  }
  QWidget window;
  window.show();
  QToolTip::showText(window.mapToGlobal(QPoint(5, 5)), QStringLiteral("TEF"), &window);
  const QWidget* tip = nullptr;
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->inherits("QTipLabel")) tip = widget;
  }
  ASSERT_NE(tip, nullptr);
  EXPECT_EQ(tip->palette().color(QPalette::ToolTipText), qt::tone::kText);
  QToolTip::hideText();
}

}  // namespace

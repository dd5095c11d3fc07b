#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "../wait.h"
#include "qt/look/register.h"
#include "qt/ports/qt_platform.h"
#include "services/sobre.h"

namespace {

TEST(AboutLook, SaysInPlainTextWhatTheProgramIsAndClosesWithEscapeOrEnter) {
  qt::Looks looks;
  qt::RegisterLooks(looks);
  qt::QtPlatform platform(looks);
  services::Sobre about(platform, "Programa <b>&x</b> 7.2");
  for (const int key : {Qt::Key_Escape, Qt::Key_Return}) {
    about.Show();
    auto& dialog = *platform.desktop().FrameOf(about)->look().widget;
    const auto* label = dialog.findChild<QLabel*>();
    ASSERT_TRUE(support::WaitFor([&] { return !label->text().isEmpty(); }));
    EXPECT_TRUE(label->text().startsWith(QStringLiteral("Programa <b>&x</b> 7.2")));
    EXPECT_TRUE(label->text().contains(QStringLiteral("Licencia")));
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_LE(label->heightForWidth(label->width()), label->height());
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(dialog.findChild<QPushButton*>(), &press);
    EXPECT_FALSE(about.visible()) << key;
    EXPECT_FALSE(about.loaded()) << key;
  }
  platform.desktop().Clear();
}

}  // namespace

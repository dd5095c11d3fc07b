#include "qt/ports/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace {

/// Calls `act` with the next message box that opens.
template <typename Act>
void WhenOpen(Act act) {
  QTimer::singleShot(0, QApplication::instance(), [act] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    act(*box);
  });
}

TEST(QtDialogs, ShowsTextFromOutsideAsItIs) {
  WhenOpen([](QMessageBox& box) {
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.text(), QStringLiteral("<b>uno</b>\ndos tres"));
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Cotirama Brizna 4.1"));
    box.close();
  });
  qt::QtDialogs().Message("<b>uno</b>\r\ndos\ttres");
}

TEST(QtDialogs, OnlyTheYesButtonIsAYes) {
  qt::QtDialogs dialogs;
  WhenOpen([](QMessageBox& box) { box.buttons().at(0)->click(); });
  EXPECT_TRUE(dialogs.Ask("¿Sí?"));
  WhenOpen([](QMessageBox& box) { box.buttons().at(1)->click(); });
  EXPECT_FALSE(dialogs.Ask("¿Sí?"));
  WhenOpen([](QMessageBox& box) { box.close(); });
  EXPECT_FALSE(dialogs.Ask("¿Sí?"));
}

TEST(QtDialogs, BoxOutlivesTheWindowBelowIt) {
  auto* window = new QWidget;
  window->show();
  WhenOpen([window](QMessageBox&) { delete window; });
  EXPECT_FALSE(qt::QtDialogs().Ask("¿Sí?"));
}

TEST(BoxText, NoTextMakesABoxThatNoScreenHolds) {
  for (const std::string& text : {std::string(100000, 'x'), std::string(100000, '\n'),
                                  std::string(100000, ' '), std::string("a\0b", 3)}) {
    const QString shown = qt::BoxText(text);
    EXPECT_LE(shown.size(), 2100);
    EXPECT_LE(shown.count(u'\n'), 30);
    EXPECT_FALSE(shown.contains(QChar(0)));
    WhenOpen([](QMessageBox& box) {
      EXPECT_LT(box.width(), 1000);
      EXPECT_LT(box.height(), 900);
      box.close();
    });
    qt::QtDialogs().Message(text);
  }
}

}  // namespace

#include "qt/ports/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTimer>

namespace {

/// Calls `act` with the next box that opens.
template <typename Box = QMessageBox, typename Act>
void WhenOpen(Act act) {
  QTimer::singleShot(0, QApplication::instance(), [act] {
    auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
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

TEST(QtDialogs, ALineIsTypedAndTakenOrGivenUp) {
  qt::QtDialogs dialogs;
  const auto type_and_press = [](int key) {
    WhenOpen<QDialog>([key](QDialog& box) {
      auto* field = box.findChild<QLineEdit*>();
      EXPECT_EQ(field->accessibleName(), QStringLiteral("¿<b>Qué</b>?"));
      EXPECT_EQ(box.focusWidget(), field);
      EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
      field->insert(QStringLiteral("tef ñ"));
      QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
      QApplication::sendEvent(field, &press);
    });
  };
  type_and_press(Qt::Key_Return);
  EXPECT_EQ(dialogs.Input("¿<b>Qué</b>?"), "tef ñ");
  type_and_press(Qt::Key_Escape);
  EXPECT_EQ(dialogs.Input("¿<b>Qué</b>?"), "");
}

TEST(QtDialogs, AColourBeginsWithTheCurrentOneAndIsTakenOrGivenUp) {
  struct Case {
    base::Color current;
    QRgb begins, picked;
    base::Color answer;
  };
  for (const auto& [current, begins, picked, answer] :
       {Case{10, 0x00FF00, 0x123456, 0x563412}, Case{0x563412, 0x123456, 0x000000, 0},
        Case{7, 0xC0C0C0, 0x0A0000, 0x10}, Case{-1, 0xFFFFFF, 0x070000, 0}}) {
    for (const bool accepts : {true, false}) {
      WhenOpen<QColorDialog>([&](QColorDialog& box) {
        EXPECT_EQ(box.currentColor(), QColor(begins));
        box.setCurrentColor(QColor(picked));
        accepts ? box.accept() : box.reject();
      });
      EXPECT_EQ(qt::QtDialogs().Color(current), accepts ? std::optional(answer) : std::nullopt);
    }
  }
}

TEST(QtDialogs, KeepsNoSettingsOfQtsOwn) {
  const qt::QtDialogs dialogs;
  EXPECT_FALSE(QSettings(QSettings::UserScope, QStringLiteral("QtProject")).isWritable());
}

TEST(QtDialogs, TheEndOfTheProgramClosesEveryBoxAsGivenUp) {
  qt::QtDialogs dialogs;
  bool answer = true;
  std::optional<base::Color> color = 0;
  WhenOpen<QDialog>([&](QDialog& box) {
    box.findChild<QLineEdit*>()->setText(QStringLiteral("a medias"));
    WhenOpen([&](QMessageBox&) {
      WhenOpen<QColorDialog>([&](QColorDialog&) {
        WhenOpen([&](QMessageBox&) { dialogs.Dismiss(); });
        dialogs.Message("cuatro");
      });
      color = dialogs.Color(9);
    });
    answer = dialogs.Ask("¿dos?");
  });
  EXPECT_EQ(dialogs.Input("uno"), "");
  EXPECT_FALSE(answer);
  EXPECT_EQ(color, std::nullopt);
  // One that opened now would never be answered.
  dialogs.Message("tarde");
  EXPECT_FALSE(dialogs.Ask("¿tarde?"));
  EXPECT_EQ(dialogs.Input("tarde"), "");
  EXPECT_EQ(dialogs.Color(3), std::nullopt);
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

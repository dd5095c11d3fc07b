#include "qt/look/binders.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QWheelEvent>

#include "../wait.h"
#include "qt/look/small_widgets.h"
#include "qt/look/theme.h"

namespace {

class ComboTest : public testing::Test {
 protected:
  ComboTest() {
    for (const char* item : {"Alfa ", "Beta", "", "Alfa ", "<b>Gamma</b>"}) box.AddItem(item);
    box.set_text("Beta");
    box.set_label("  &Cartera");
    box.on_change = [this] { events << "c:" + QString::fromStdString(box.text()); };
    box.on_click = [this] { events << "k:" + QString::fromStdString(box.text()); };
    box.on_double_click = [this] { events << "dd"; };
    binders.Bind(box, *widget);
    host.show();
  }
  bool Press(QWidget* into, int key, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(into, &press);
    return press.isAccepted();
  }
  void Frame() {
    clock.Wake();
    EXPECT_TRUE(support::WaitFor([this] { return !box.dirty(); }));
  }
  [[nodiscard]] QString Seen() const {
    return QString::number(widget->currentIndex()) + ":" + widget->currentText();
  }
  [[nodiscard]] QString Events() { return QStringList(std::exchange(events, {})).join('|'); }

  platform::ComboBox box;
  QWidget host;
  QComboBox* widget = new QComboBox(&host);
  qt::FrameClock clock;
  qt::Binders binders{host, clock};
  QStringList events;
};

TEST_F(ComboTest, ShowsEntriesAndTextOfTheModelAndTellsItNothingNew) {
  EXPECT_EQ(Seen(), "1:Beta");
  QStringList items;
  for (int i = 0; i < widget->count(); ++i) items << widget->itemText(i);
  EXPECT_EQ(items.join('|'), "Alfa |Beta||Alfa |<b>Gamma</b>");
  for (const char* text : {"Bet", "Alfa ", ""}) {
    box.set_text(text);
    Frame();
    EXPECT_EQ(widget->currentText(), text);
    EXPECT_EQ(widget->currentIndex(), widget->findText(text, Qt::MatchExactly)) << text;
  }
  EXPECT_EQ(Events(), "c:Bet|c:Alfa |c:") << "no clicks";
  auto* spoken = QAccessible::queryAccessibleInterface(widget);
  EXPECT_EQ(spoken->text(QAccessible::Name), "Cartera");
}

TEST_F(ComboTest, TypingChangesTheTextAndNeverChooses) {
  QLineEdit* line = widget->lineEdit();
  line->setCursorPosition(1);
  Press(widget, 0, "x");
  Frame();
  EXPECT_EQ(line->cursorPosition(), 2) << "typing goes on where it was";
  Press(widget, Qt::Key_Backspace);
  line->clear();
  for (const char* letter : {"A", "l", "f", "a", " "}) Press(widget, 0, letter);
  EXPECT_FALSE(Press(widget, Qt::Key_Return)) << "left to the dialog";
  Frame();
  EXPECT_EQ(Events(), "c:Bxeta|c:Beta|c:A|c:Al|c:Alf|c:Alfa|c:Alfa ");
  Press(widget, Qt::Key_Down);
  EXPECT_EQ(Events(), "k:Beta") << "the one below what was typed";
}

TEST_F(ComboTest, ArrowsAndThePopupChooseAndTheWheelDoesNot) {
  Press(widget, Qt::Key_Down);
  Press(widget, Qt::Key_Down);
  EXPECT_EQ(Seen(), "3:Alfa ");
  Frame();
  Press(widget, Qt::Key_Down);
  EXPECT_EQ(Events(), "k:|k:Alfa |k:<b>Gamma</b>") << "from the one of the two that was chosen";
  widget->showPopup();
  Press(widget->view(), Qt::Key_Return);
  EXPECT_EQ(Events(), "k:<b>Gamma</b>") << "the same again";
  box.set_text("otra");
  Frame();
  Press(widget, Qt::Key_Down);
  EXPECT_EQ(Events(), "c:otra|k:Alfa ");

  const QPointF at(5, 5);
  QWheelEvent wheel(at, widget->mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(widget, &wheel);
  EXPECT_EQ(Seen(), "0:Alfa ");
  QMouseEvent twice(QEvent::MouseButtonDblClick, at, widget->mapToGlobal(at), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(widget->lineEdit(), &twice);
  EXPECT_EQ(Events(), "dd");
}

TEST_F(ComboTest, TheCursorStandsBehindWhatIsToBeSeenOfAWrittenOrChosenText) {
  host.activateWindow();
  widget->setFocus();
  ASSERT_TRUE(support::WaitFor([this] { return widget->hasFocus(); }));
  const auto at = [this] { return widget->lineEdit()->cursorPosition(); };
  box.AddItem("Delta   ");
  for (const auto& [text, end] : {std::pair{"Delta   ", 5}, {"  ", 0}, {"Beta", 4}}) {
    box.set_text(text);
    Frame();
    EXPECT_EQ(at(), end) << text;
  }
  box.set_text("<b>Gamma</b>");
  Frame();
  Press(widget, Qt::Key_Down);
  EXPECT_EQ(at(), 5) << "by arrow";
  widget->lineEdit()->end(false);
  widget->showPopup();
  Press(widget->view(), Qt::Key_Return);
  EXPECT_EQ(at(), 5) << "in the popup";
  EXPECT_EQ(Seen(), "5:Delta   ");
  widget->lineEdit()->setCursorPosition(2);
  box.AddItem("otra");
  Frame();
  EXPECT_EQ(at(), 2) << "new entries leave it alone";
}

TEST_F(ComboTest, EntriesThatAreFilledAnewCloseThePopupAndKeepTheText) {
  widget->showPopup();
  box.Clear();
  box.AddItem("Delta");
  widget->view()->setCurrentIndex(widget->model()->index(0, 0));
  Press(widget->view(), Qt::Key_Return);  // before the next frame
  EXPECT_EQ(Seen(), "-1:Beta") << "what is no more can't be chosen";
  widget->showPopup();
  box.AddItem("Beta");
  Frame();
  EXPECT_FALSE(widget->view()->isVisible());
  EXPECT_EQ(Seen(), "1:Beta");
  box.Clear();
  Frame();
  EXPECT_EQ(Seen(), "-1:Beta");
  EXPECT_EQ(Events(), "");
}

TEST(TextBoxBinder, ALockedBoxInItsOwnColoursIsReadOnlyButReachable) {
  platform::TextBox box;
  box.set_locked(true);
  box.set_text("12.50%");
  box.set_back(4);
  box.set_fore(15);
  QWidget host;
  QLineEdit widget(&host);
  qt::FrameClock clock;
  qt::Binders binders(host, clock);
  binders.Bind(box, widget, qt::Binders::Colors::model);
  QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, "7");
  QApplication::sendEvent(&widget, &press);
  EXPECT_EQ(box.text(), "12.50%");
  EXPECT_TRUE(widget.focusPolicy() & Qt::TabFocus);
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&widget)->state().readOnly);
  host.show();
  for (const auto& [fore, back] : {std::pair{15, 4}, {0, 15}}) {
    box.set_fore(static_cast<base::Color>(fore));
    box.set_back(static_cast<base::Color>(back));
    clock.Wake();
    ASSERT_TRUE(support::WaitFor([&] { return !box.dirty(); }));
    EXPECT_EQ(widget.palette().color(QPalette::Text), qt::ColorOf(box.fore()));
    EXPECT_EQ(widget.palette().color(QPalette::Base), qt::ColorOf(box.back()));
  }
}

TEST(TextBoxBinder, EnterGoesToTheHookElseToTheDefaultButton) {
  platform::TextBox box;
  QDialog dialog;
  QLineEdit line(&dialog);
  QPushButton button(&dialog);
  button.setDefault(true);
  qt::FrameClock clock;
  qt::Binders binders(dialog, clock);
  binders.Bind(box, line);
  QString events;
  QObject::connect(&button, &QPushButton::clicked, [&events] { events += "b"; });
  const auto press_both = [&line] {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
      QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
      QApplication::sendEvent(&line, &press);
    }
  };
  dialog.show();
  press_both();
  box.on_enter = [&events] { events += "h"; };
  press_both();
  EXPECT_EQ(events, "bbhh");
}

TEST(LabelWidget, APressableOneWorksByKeyboardAndByWhatReadsTheScreen) {
  qt::LabelWidget label;
  int clicks = 0;
  label.on_click = [&clicks] { ++clicks; };
  const auto press_all = [&label] {
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A}) {
      QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
      QApplication::sendEvent(&label, &press);
    }
  };
  press_all();
  EXPECT_EQ(clicks, 0);
  label.set_pressable(true);
  press_all();
  EXPECT_EQ(clicks, 3);
  EXPECT_TRUE(label.focusPolicy() & Qt::TabFocus);
  auto* spoken = QAccessible::queryAccessibleInterface(&label);
  EXPECT_EQ(spoken->role(), QAccessible::Link);
  spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(clicks, 4);
}

}  // namespace

#include "qt/ports/qt_desktop.h"

#include <gtest/gtest.h>
#include <memory>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMdiArea>

#include "../wait.h"
#include "platform/controls.h"
#include "qt/ports/qt_platform.h"
#include "qt/ports/twips.h"

namespace {

using State = platform::Window::State;

struct TestWindow : platform::Window {
  using Window::Window;
  platform::TextBox field;
  bool may_close = false;
  int resizes = 0;

 protected:
  bool OnQueryUnload() override { return may_close; }
  void OnResize() override { ++resizes; }
};
struct Main : TestWindow {
  using TestWindow::TestWindow;
};
struct Child : TestWindow {
  using TestWindow::TestWindow;
};
struct Login : TestWindow {
  using TestWindow::TestWindow;
};

class Dialog : public QDialog {
 public:
  explicit Dialog(bool& shown_quietly) : shown_quietly_(shown_quietly) {}

 protected:
  void showEvent(QShowEvent*) override {
    shown_quietly_ = testAttribute(Qt::WA_ShowWithoutActivating);
  }

 private:
  bool& shown_quietly_;
};

class QtDesktopTest : public testing::Test {
 protected:
  void SetUp() override {
    looks.Add<Main>([](Main&, qt::FrameClock&) {
      auto* widget = new QMainWindow;
      auto* area = new QMdiArea;
      widget->setCentralWidget(area);
      widget->resize(900, 700);
      return qt::Look{.widget = widget, .place = qt::Place::main, .area = area};
    });
    looks.Add<Child>([this](Child& window, qt::FrameClock&) {
      ++made;
      auto* widget = new QWidget;
      auto* field = new QWidget(widget);
      return qt::Look{.widget = widget,
                      .place = qt::Place::child,
                      .widget_of =
                          [&window, field](platform::Control& control) {
                            return &control == &window.field ? field : nullptr;
                          },
                      .bond = bond};
    });
    looks.Add<Login>([this](Login&, qt::FrameClock&) {
      return qt::Look{.widget = new Dialog(shown_quietly), .place = qt::Place::dialog};
    });
    main.Load();
  }
  ~QtDesktopTest() override { platform.desktop().Clear(); }

  [[nodiscard]] QWidget* OuterOf(const platform::Window& window) {
    const qt::WindowFrame* frame = platform.desktop().FrameOf(window);
    return frame ? frame->outer() : nullptr;
  }

  int made = 0;
  bool shown_quietly = false;
  std::shared_ptr<void> bond = std::make_shared<int>(0);
  qt::Looks looks;
  qt::QtPlatform platform{looks};
  Main main{platform};
  Child child{platform};
  Login login{platform};
};

TEST_F(QtDesktopTest, MakesTheWidgetAtTheFirstShowAndOnlyThen) {
  child.Load();
  EXPECT_EQ(made, 0);
  main.Show();
  child.Show();
  child.Hide();
  EXPECT_FALSE(OuterOf(child)->isVisible());
  child.Show();
  EXPECT_EQ(made, 1);
  EXPECT_TRUE(OuterOf(child)->isVisible());
  EXPECT_EQ(platform.desktop().FrameOf(main)->look().area->subWindowList(),
            QList<QMdiSubWindow*>{qobject_cast<QMdiSubWindow*>(OuterOf(child))});
}

TEST_F(QtDesktopTest, CaptionFollowsWithItsMarksAsPlainText) {
  main.Show();
  child.Show();
  child.set_caption("Valor [*] & Cía");
  ASSERT_TRUE(support::WaitFor(
      [&] { return OuterOf(child)->windowTitle() == QStringLiteral("Valor [*][*] & Cía"); }));
}

TEST_F(QtDesktopTest, PlaceGoesBothWays) {
  main.Show();
  child.set_rect({150, 300, 4508, 3000});  // 4508 isn't a whole pixel
  child.Show();
  EXPECT_EQ(OuterOf(child)->geometry(), QRect(10, 20, 301, 200));
  EXPECT_EQ(child.rect(), (platform::Rect{150, 300, 4508, 3000}));
  EXPECT_GT(child.inner_width(), 0);
  EXPECT_LT(child.inner_height(), 3000);

  const int before = child.resizes;
  OuterOf(child)->setGeometry(30, 40, 400, 300);
  EXPECT_EQ(child.rect(), (platform::Rect{450, 600, 6000, 4500}));
  EXPECT_GT(child.resizes, before);

  child.set_rect({0, 0, 3000, 3000});
  EXPECT_TRUE(
      support::WaitFor([&] { return OuterOf(child)->geometry() == QRect(0, 0, 200, 200); }));
}

TEST_F(QtDesktopTest, AChildFirstComesUpWithinItsArea) {
  main.Show();
  const QRect room = platform.desktop().FrameOf(main)->look().area->viewport()->rect();
  const int wide = room.width(), high = room.height();
  struct Case {
    QRect wanted, shown;
  };
  for (const Case& c : {Case{{20, 20, wide + 200, 600}, {0, 20, wide, 600}},
                        Case{{3000, -800, 400, 300}, {wide - 400, 0, 400, 300}},
                        Case{{-50, 680, 400, 9000}, {0, 0, 400, high}}}) {
    Child window(platform);
    window.set_rect(qt::ToTwips(c.wanted));
    window.Show();
    EXPECT_EQ(OuterOf(window)->geometry(), c.shown);
    EXPECT_EQ(window.rect(), qt::ToTwips(c.shown));
    EXPECT_GT(window.inner_width(), 0);
    window.may_close = true;
    window.Unload();
  }
  child.set_state(State::maximized);
  child.set_rect(qt::ToTwips(QRect(2000, 2000, 300, 200)));
  child.Show();
  OuterOf(child)->showNormal();
  EXPECT_TRUE(room.contains(OuterOf(child)->geometry()));
  OuterOf(child)->move(850, 40);
  child.Hide();
  child.Show();
  EXPECT_EQ(OuterOf(child)->pos(), QPoint(850, 40)) << "where the user has put it";
}

TEST_F(QtDesktopTest, StateGoesBothWaysAndKeepsThePlace) {
  main.Show();
  child.set_rect({150, 150, 4500, 3000});
  child.Show();
  child.set_state(State::maximized);
  ASSERT_TRUE(support::WaitFor([&] { return OuterOf(child)->isMaximized(); }));
  OuterOf(child)->showNormal();
  EXPECT_EQ(child.state(), State::normal);
  EXPECT_EQ(child.rect(), (platform::Rect{150, 150, 4500, 3000}));

  child.Hide();
  child.set_state(State::maximized);
  child.Show();
  EXPECT_TRUE(OuterOf(child)->isMaximized());
  EXPECT_EQ(child.state(), State::maximized);
}

TEST_F(QtDesktopTest, ShowBringsAMinimisedWindowBack) {
  main.Show();
  login.Show();
  login.set_state(State::minimized);
  ASSERT_TRUE(support::WaitFor([&] { return OuterOf(login)->isMinimized(); }));
  login.Show();
  EXPECT_FALSE(OuterOf(login)->isMinimized());
  EXPECT_EQ(login.state(), State::normal);
}

TEST_F(QtDesktopTest, TheWindowDecidesWhetherTheUserMayCloseIt) {
  main.Show();
  child.Show();
  login.Show();
  const std::weak_ptr<void> kept = std::exchange(bond, nullptr);
  for (TestWindow* window : {static_cast<TestWindow*>(&child), static_cast<TestWindow*>(&login)}) {
    EXPECT_FALSE(OuterOf(*window)->close());
    EXPECT_TRUE(OuterOf(*window)->isVisible());
    window->may_close = true;
    OuterOf(*window)->close();
    EXPECT_EQ(OuterOf(*window), nullptr);
    EXPECT_FALSE(window->loaded());
  }
  looks = {};
  EXPECT_TRUE(kept.expired());
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(QtDesktopTest, EscapeClosesADialog) {
  main.Show();
  login.may_close = true;
  login.Show();
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(OuterOf(login), &escape);
  EXPECT_FALSE(login.loaded());
}

TEST_F(QtDesktopTest, FocusGoesToTheWidgetOfTheControl) {
  main.Show();
  child.Show();
  child.SetFocus(child.field);
  ASSERT_TRUE(support::WaitFor([] { return QApplication::focusWidget() != nullptr; }));
  EXPECT_EQ(QApplication::focusWidget()->parentWidget(),
            platform.desktop().FrameOf(child)->look().widget);
  platform::TextBox other;
  child.SetFocus(other);
}

TEST_F(QtDesktopTest, ARaisedWindowComesUpWithoutTheKeyboard) {
  main.Show();
  child.Show();
  child.SetFocus(child.field);
  ASSERT_TRUE(support::WaitFor([] { return QApplication::focusWidget() != nullptr; }));
  QWidget* const focus = QApplication::focusWidget();
  Child other(platform);
  other.Raise();
  support::Settle();
  EXPECT_TRUE(OuterOf(other)->isVisible());
  EXPECT_EQ(QApplication::focusWidget(), focus);

  // This screen activates whatever it shows, so what counts is what it was asked for.
  login.Raise();
  EXPECT_TRUE(OuterOf(login)->isVisible());
  EXPECT_TRUE(shown_quietly);
  login.Hide();
  login.Show();
  EXPECT_FALSE(shown_quietly);
  child.SetFocus(child.field);
  main.Show();
  ASSERT_TRUE(support::WaitFor([&] { return QApplication::focusWidget() == focus; }));
  login.Raise();
  support::Settle();
  EXPECT_EQ(QApplication::focusWidget(), focus) << "as it was up already";
}

TEST_F(QtDesktopTest, WhatWasLeftLastIsActiveWhenAChildCloses) {
  main.Show();
  child.Show();
  Child minimised(platform), other(platform);
  minimised.Show();
  OuterOf(minimised)->showMinimized();
  for (const bool hides : {true, false}) {
    other.Show();
    other.may_close = true;
    if (hides) {
      other.Hide();
    } else {
      other.Unload();
    }
    EXPECT_EQ(platform.desktop().FrameOf(main)->look().area->activeSubWindow(), OuterOf(child));
  }
}

TEST_F(QtDesktopTest, ADialogComesUpAgainWhereItWas) {
  main.Show();
  login.may_close = true;
  login.Show();
  OuterOf(login)->setGeometry(200, 150, 400, 300);
  support::Settle();
  for (int round = 0; round < 3; ++round) {
    login.Unload();
    login.Show();
    support::Settle();
    EXPECT_EQ(OuterOf(login)->geometry(), QRect(200, 150, 400, 300));
  }
}

TEST_F(QtDesktopTest, MainWindowMayGoBeforeItsChildren) {
  main.Show();
  child.Show();
  main.may_close = true;
  main.UserClose();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  child.Hide();
  child.Show();
  child.set_caption("huérfana");
  support::Settle();
}

}  // namespace

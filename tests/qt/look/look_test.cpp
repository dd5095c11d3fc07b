#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTextDocument>

#include "../wait.h"
#include "qt/look/board_look.h"
#include "qt/look/grid_widget.h"
#include "qt/look/hot_look.h"
#include "qt/look/login_look.h"
#include "qt/look/main_look.h"
#include "qt/look/small_widgets.h"
#include "qt/look/text.h"
#include "qt/look/tool_bar_look.h"
#include "shell/terminal.h"
#include "support/memory_platform.h"

// Qt's own way to let tests press a key on a window, shortcuts included.
void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                       const QString& text, bool repeat, unsigned short count);

namespace {

/// The real windows of a terminal on the platform in memory.
class LookTest : public testing::Test {
 protected:
  LookTest() {
    terminal.MDI.Load();
    terminal.Conecta.Show();
    main = qt::MakeMainLook(terminal.MDI, clock);
    login = qt::MakeLoginLook(terminal.Conecta, clock);
    board = qt::MakeBoardLook(terminal.Continuo, clock);
  }
  ~LookTest() override {
    for (qt::Look* look : {&board, &login, &main}) {
      look->bond.reset();
      delete look->widget;
    }
  }
  template <typename W>
  W& WidgetOf(const qt::Look& look, platform::Control& control) {
    return *static_cast<W*>(look.widget_of(control));
  }
  static void Type(QWidget& into, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, text);
    QApplication::sendEvent(&into, &press);
  }

  support::TempDir dir;
  support::MemoryPlatform platform;
  shell::Terminal terminal{platform, base::ProgramDir(dir.path())};
  qt::FrameClock clock;
  qt::Look main, login, board;
};

/// The controls below `widget` that the keyboard reaches, each with its accessible name. Without
/// those of lists that open.
QStringList NamesBelow(QWidget& widget) {
  QStringList names;
  for (QWidget* child : widget.findChildren<QWidget*>()) {
    const bool control = qobject_cast<QAbstractButton*>(child) || qobject_cast<QLineEdit*>(child) ||
                         qobject_cast<QAbstractItemView*>(child);
    if (!control || child->isHidden() || child->focusPolicy() == Qt::NoFocus) continue;
    if (child->window() != widget.window()) continue;
    auto* spoken = QAccessible::queryAccessibleInterface(child);
    names << (spoken ? spoken->text(QAccessible::Name) : QString());
  }
  names.sort();
  return names;
}

TEST_F(LookTest, EveryControlHasItsNameForThoseWhoCannotSeeIt) {
  EXPECT_EQ(NamesBelow(*login.widget).join('|'), "Conectar|IP|LOGIN|PASSWORD|_");
  EXPECT_EQ(NamesBelow(*board.widget).join('|'),
            "Copiar|Cotirama Mercado Continuo|Grabar|Graficos|Imprimir");
  QStringList names = NamesBelow(*main.widget);
  for (const char* strip :
       {"Bytes transferidos: 0", "Operar", "Carteras Disponibles", "Valor Cartera", "% Ganancia",
        "Ganancia (Efectivo)", "Muestra el Mercado Continuo", "Indices", "Futuros", "Divisas",
        "Lista de alarmas", "Ticker"}) {
    EXPECT_TRUE(names.removeOne(QString::fromLatin1(strip))) << strip;
  }
  EXPECT_EQ(names.count(QString()), 0);
  EXPECT_EQ(WidgetOf<QWidget>(main, terminal.MDI.Check1).accessibleName(), "Refresh") << "hidden";
  QStringList tips;
  for (const platform::Tool& tool : terminal.MDI.ActiveBar1.tools) {
    if (tool.number != 0) tips << qt::Text(tool.tip);
  }
  tips.sort();
  EXPECT_EQ(names, tips);
  auto& time = WidgetOf<QWidget>(main, terminal.MDI.LT);
  EXPECT_EQ(time.accessibleName(), "Hora de sesión") << "while it shows nothing";
  terminal.MDI.LT.set_caption("10:00:00");
  main.widget->show();
  clock.Wake();
  EXPECT_TRUE(support::WaitFor([&] { return time.accessibleName() == "10:00:00"; }));
}

TEST_F(LookTest, WhatTheUserDoesReachesTheModelAtOnceAndRunsItsHook) {
  Type(WidgetOf<QLineEdit>(login, terminal.Conecta.Text1), "ana77");
  Type(WidgetOf<QLineEdit>(login, terminal.Conecta.Text2), "secreto");
  EXPECT_EQ(terminal.Conecta.Text1.text(), "ana77");
  ASSERT_FALSE(platform.sockets.empty());
  auto& connect = WidgetOf<QPushButton>(login, terminal.Conecta.Command2);
  EXPECT_TRUE(connect.isDefault());
  connect.click();
  EXPECT_FALSE(terminal.Conecta.visible()) << "it connects and hides";

  WidgetOf<QCheckBox>(main, terminal.MDI.Check2).click();
  EXPECT_EQ(terminal.MDI.Check2.value(), 1);
  EXPECT_TRUE(terminal.MDI.Picture1.visible());
  auto* menu = static_cast<QMainWindow*>(main.widget)->menuBar();
  menu->actions().value(1)->menu()->actions().value(0)->trigger();
  EXPECT_TRUE(terminal.Continuo.visible());
}

TEST_F(LookTest, AToolTellsItsNumberAndItsTip) {
  platform::ToolBar bar;
  QList<int> numbers;
  bar.on_click = [&numbers](const platform::Tool& tool) { numbers << tool.number; };
  bar.tools = {{24, "Mercado Continuo", platform::Icon::board},
               {},
               {30, "Alarma <b>por</b> Precio", platform::Icon::price_alarm}};
  QWidget host;
  qt::Binders binders(host, clock);
  QWidget* row = qt::MakeToolBar(bar, binders, &host);
  EXPECT_EQ(NamesBelow(*row).join('|'), "Alarma <b>por</b> Precio|Mercado Continuo");
  for (auto* button : row->findChildren<QAbstractButton*>()) button->click();
  EXPECT_EQ(numbers, (QList<int>{24, 30}));
}

TEST_F(LookTest, ToolsForWhichThereIsNoRoomStandInAMenuAtTheEnd) {
  platform::ToolBar bar;
  QList<int> numbers;
  bar.on_click = [&numbers](const platform::Tool& tool) { numbers << tool.number; };
  bar.tools = {{1, "Uno"}, {2, "Dos"}, {}, {3, "Tres & <b>"}, {4, "Cuatro"}};
  QWidget host;
  qt::Binders binders(host, clock);
  QWidget* row = qt::MakeToolBar(bar, binders, &host);
  const int all = row->sizeHint().width();
  host.show();
  const std::pair<int, const char*> cases[] = {{all, "Cuatro|Dos|Tres & <b>|Uno"},
                                               {all - 1, "Dos|Más herramientas|Uno"},
                                               {1, "Más herramientas"},
                                               {all, "Cuatro|Dos|Tres & <b>|Uno"},
                                               {84, "Más herramientas|Uno"},
                                               {120, "Dos|Más herramientas|Uno"}};
  for (const auto& [width, names] : cases) {
    row->resize(width, row->height());
    EXPECT_EQ(NamesBelow(*row).join('|'), QString::fromUtf8(names)) << width;
    for (QWidget* child : row->findChildren<QWidget*>()) {
      EXPECT_TRUE(width == 1 || child->isHidden() || child->geometry().right() < width) << width;
    }
  }
  for (auto* button : row->findChildren<QAbstractButton*>()) {
    if (button->accessibleName() == QStringLiteral("Más herramientas")) button->click();
  }
  auto* menu = row->findChild<QMenu*>();
  ASSERT_TRUE(menu);
  QStringList items;
  for (QAction* action : menu->actions()) items << action->text();
  EXPECT_EQ(items.join('|'), "|Tres && <b>|Cuatro");
  menu->actions().value(1)->trigger();
  EXPECT_EQ(numbers, QList<int>{3});
}

TEST_F(LookTest, AcceleratorsWorkWhileAnInnerWindowHasTheKeyboard) {
  int runs = 0;
  shell::MDI mdi(platform);
  mdi.menu = {{"&Uno", {}, {{"&Dos", [&runs] { ++runs; }, {}, "Ctrl+Shift+7"}}}};
  mdi.keys = {{"Tres", [&runs] { runs += 10; }, {}, "Ctrl+Shift+8"}};
  qt::Look look = qt::MakeMainLook(mdi, clock);
  auto* field = new QLineEdit;
  look.area->addSubWindow(field);
  look.widget->show();
  field->show();
  look.widget->activateWindow();
  field->setFocus();
  ASSERT_TRUE(support::WaitFor([&] { return field->hasFocus(); }));
  for (const int key : {Qt::Key_7, Qt::Key_8}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      qt_handleKeyEvent(look.widget->windowHandle(), type, key,
                        Qt::ControlModifier | Qt::ShiftModifier, QString(), false, 1);
    }
  }
  EXPECT_TRUE(support::WaitFor([&] { return runs == 11; }));
  look.bond.reset();
  delete look.widget;
}

TEST_F(LookTest, AWindowFollowsItsModelsOnlyWhileItCanBeSeen) {
  auto& count = WidgetOf<qt::LabelWidget>(main, terminal.MDI.Label2);
  terminal.MDI.Label2.set_caption("Instrumentos: <b>7</b>");
  support::Settle();
  EXPECT_EQ(count.text(), "Instrumentos: 0");
  main.widget->show();
  clock.Wake();
  EXPECT_TRUE(support::WaitFor([&] { return count.text() == "Instrumentos: <b>7</b>"; }));
  EXPECT_EQ(count.textFormat(), Qt::PlainText);
}

TEST_F(LookTest, ABoardHasTheKeyboardInItsGridAndOffersOnlyTheCommandsOfItsBar) {
  terminal.Hot.Load();
  struct Case {
    views::GridView& view;
    qt::Look look;
    QString names;
  } cases[] = {
      {terminal.Futuros, qt::MakeBoardLook(terminal.Futuros, clock), "Cotirama Futuros"},
      {terminal.Hot, qt::MakeHotLook(terminal.Hot, clock),
       "Copiar|Graficos|Hot|Imprimir|Instrumento"},
  };
  for (Case& c : cases) {
    QMdiArea area;
    area.addSubWindow(c.look.widget)->show();
    area.show();
    area.activateWindow();
    auto& grid = WidgetOf<qt::GridWidget>(c.look, c.view.Command5);
    EXPECT_TRUE(support::WaitFor([&] { return grid.hasFocus(); })) << c.names.toStdString();
    EXPECT_EQ(NamesBelow(*c.look.widget).join('|'), c.names);
    QMenu menu;
    if (grid.on_menu) grid.on_menu(menu);
    EXPECT_EQ(menu.actions().size(), c.names.count('|'));
    c.look.bond.reset();
  }
}

TEST_F(LookTest, TheGridTakesTheRoomThatTheBarLeaves) {
  board.widget->resize(800, 500);
  board.widget->show();
  auto& grid = WidgetOf<qt::GridWidget>(board, terminal.Continuo.Command5);
  const int bar = grid.y();
  EXPECT_GT(bar, 20);
  platform::Rect up = terminal.Continuo.Picture1.rect();
  up.top = 1 - up.height;
  terminal.Continuo.Picture1.set_rect(up);
  EXPECT_TRUE(support::WaitFor([&] { return grid.y() == 0; }));
  EXPECT_EQ(grid.size(), board.widget->size());
  EXPECT_FALSE(WidgetOf<QPushButton>(board, terminal.Continuo.Command3).isVisible());
}

TEST(LookText, OutsideTextIsNeverMarkupNorMnemonic) {
  EXPECT_EQ(qt::ToolTipText("TEF    "), "TEF");
  QTextDocument shown;
  shown.setHtml(qt::ToolTipText("<b>a & b</b>"));
  EXPECT_EQ(shown.toPlainText(), "<b>a & b</b>");
  EXPECT_EQ(qt::WithoutMnemonic("A&B"), "A&&B");
  EXPECT_EQ(qt::SpokenCaption("&Abrir && &cerrar"), "Abrir & cerrar");
}

}  // namespace

#include "qt/look/portfolio_looks.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMouseEvent>
#include <QWindow>

#include "../wait.h"
#include "qt/look/portfolio_parts.h"
#include "qt/look/register.h"
#include "qt/ports/qt_platform.h"
#include "support/orders.h"
#include "support/temp_dir.h"

namespace {

using portfolios::PortfolioStore;

constexpr char kLongName[] = "ÑANDÚ <b>DE LA CARTERA</b";  // 25 characters

void Press(QWidget& widget, int key, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(&widget, &press);
}

void Type(QLineEdit& field, const QString& text) {
  for (const QChar letter : text) Press(field, 0, letter);
}

/// Whether a label of the dialog reads so.
bool Says(const QWidget& widget, const QString& text) {
  const auto labels = widget.window()->findChildren<QLabel*>();
  return std::ranges::any_of(labels, [&](const QLabel* label) {
    return label->isVisible() && label->text() == text && label->textFormat() == Qt::PlainText;
  });
}

/// A line as it is read out.
QString LineOf(QWidget& list, int row) {
  const QAccessibleInterface* line = QAccessible::queryAccessibleInterface(&list)->child(row);
  return line ? line->text(QAccessible::Name) : QString();
}

class PortfolioLooksTest : public testing::Test {
 protected:
  PortfolioLooksTest() { qt::RegisterLooks(looks); }
  ~PortfolioLooksTest() override { platform.desktop().Clear(); }

  template <typename W = QLineEdit>
  W& WidgetOf(const platform::Window& window, platform::Control& control) {
    return *static_cast<W*>(platform.desktop().FrameOf(window)->look().widget_of(control));
  }
  void AddPortfolio() {
    portfolios::FichaCartera record;
    record.Nombre = base::FixedText<25>::FromUtf8(kLongName);
    record.Agencia = base::FixedText<20>::FromUtf8("Añil & Cía");
    ASSERT_TRUE(portfolio_store.AgregarCartera(record));
  }

  support::TempDir dir;
  base::ProgramDir files{dir.path()};
  qt::Looks looks;
  qt::QtPlatform platform{looks};
  store::InstrumentStore store;
  platform::ComboBox selector;
  PortfolioStore portfolio_store{files, selector};
  portfolios::Cartera cartera{platform, portfolio_store};
  portfolios::Operar_Cartera operar{platform, store, portfolio_store};
  portfolios::Detalle detalle{platform, portfolio_store};
};

TEST_F(PortfolioLooksTest, EnterAddsAPortfolioOnlyOnceTheFormIsComplete) {
  cartera.Show();
  auto& name = WidgetOf(cartera, cartera.Text1);
  auto& button = WidgetOf<QPushButton>(cartera, cartera.Command1);
  auto& list = WidgetOf<QAbstractItemView>(cartera, cartera.List1);
  EXPECT_EQ(name.accessibleName(), "Nombre de la Cartera");
  Type(name, QString::fromUtf8(kLongName) + u'X');
  Type(WidgetOf(cartera, cartera.Text2), QStringLiteral("Añil & Cía"));
  Type(WidgetOf(cartera, cartera.Text3), QStringLiteral("0049"));
  support::Settle();
  auto& commission = WidgetOf(cartera, cartera.Text4);
  Press(commission, Qt::Key_Return);
  EXPECT_EQ(portfolio_store.NumCarteras(), 0);
  commission.selectAll();
  Type(commission, QStringLiteral("0.25"));
  ASSERT_TRUE(support::WaitFor([&] { return button.isEnabled(); }));
  Press(commission, Qt::Key_Return);
  ASSERT_EQ(portfolio_store.NumCarteras(), 1);
  EXPECT_TRUE(support::WaitFor([&] { return list.model()->rowCount() == 1; }));
  EXPECT_EQ(LineOf(list, 0), QString::fromUtf8(kLongName) + QStringLiteral("  Añil & Cía"));
  EXPECT_TRUE(name.text().isEmpty() && name.hasFocus() && !button.isEnabled());
}

TEST_F(PortfolioLooksTest, TheDialogsFitOnASmallScreen) {
  AddPortfolio();
  for (platform::Window* window :
       {static_cast<platform::Window*>(&cartera), static_cast<platform::Window*>(&operar),
        static_cast<platform::Window*>(&detalle)}) {
    window->Show();
    support::Settle();
    const QWidget& outer = *platform.desktop().FrameOf(*window)->outer();
    const QSize least = outer.minimumSizeHint();
    EXPECT_LE(least.width(), 700) << window->caption();
    EXPECT_LE(outer.layout()->minimumHeightForWidth(least.width()), 400) << window->caption();
    EXPECT_GT(outer.width(), 750) << "more where there is room";
  }
}

TEST_F(PortfolioLooksTest, TheFoundNameStandsBelowTheCodeAsInItsToolTip) {
  ASSERT_GT(store.AgregarSinDatos(store::Codigo("TAZ"), "ASTILLEROS <b>TAZO"), 0);
  AddPortfolio();
  operar.Show();
  auto& code = WidgetOf(operar, operar.Text3);
  const QString hint = QStringLiteral("Escriba el código o parte del nombre");
  EXPECT_TRUE(Says(code, hint));
  code.setFocus();
  ASSERT_TRUE(support::WaitFor([&] { return code.hasFocus(); }));
  Type(code, QStringLiteral("az"));
  Press(code, Qt::Key_Down);
  Press(code, Qt::Key_Return);
  EXPECT_EQ(operar.Text3.text(), "TAZ");
  const auto named = [&] { return Says(code, QStringLiteral("ASTILLEROS <b>TAZO")); };
  EXPECT_TRUE(support::WaitFor(named));
  Type(code, QStringLiteral("XX"));  // nobody knows it
  support::Settle();
  EXPECT_TRUE(named());
  operar.Text3.set_text("");
  EXPECT_TRUE(support::WaitFor([&] { return Says(code, hint); }));
}

TEST_F(PortfolioLooksTest, TheSuggestionsCloseWithACompleteCodeAndAClickElsewhereIsNotLost) {
  for (const char* code : {"SAN", "SANX", "BSAN"}) {
    ASSERT_GT(store.AgregarSinDatos(store::Codigo(code), "BANCO SAN"), 0);
  }
  operar.Show();
  auto& code = WidgetOf(operar, operar.Text3);
  auto& price = WidgetOf(operar, operar.Text4);
  auto* list = code.findChild<QAbstractItemView*>();
  ASSERT_NE(list, nullptr);
  for (const auto& [typed, open] : std::initializer_list<std::pair<const char*, bool>>{
           {"sa", true}, {"san", true}, {" sanx", false}, {"bsan", false}, {"zz", false}}) {
    code.clear();
    code.setFocus();
    ASSERT_TRUE(support::WaitFor([&] { return code.hasFocus(); }));
    Type(code, QString::fromUtf8(typed));
    EXPECT_EQ(list->isVisible(), open) << typed;
  }
  code.clear();
  Type(code, QStringLiteral("sa"));
  // As the window gets it, which knows who has grabbed the mouse.
  QWidget& outer = *code.window();
  const QPointF at = price.mapTo(&outer, price.rect().center());
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, at, at, outer.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(outer.windowHandle(), &event);
  }
  EXPECT_TRUE(price.hasFocus() && list->isHidden());
  EXPECT_EQ(operar.Text3.text(), "sa");
}

TEST_F(PortfolioLooksTest, TellsOfNamesThatTheSelectorCuts) {
  cartera.Show();
  auto& name = WidgetOf(cartera, cartera.Text1);
  for (const auto& [typed, whole] : std::initializer_list<std::pair<const char*, bool>>{
           {"", true},
           {"ABCDEFGHIJKLMNÑPQRSTUVW", true},    // 23
           {"ABCDEFGHIJKLMNÑPQRSTUVW ", true},   // its blank at the end doesn't count
           {"ABCDEFGHIJKLMNÑPQRSTUVWX", false},  // 24
           {"A B", true},
           {"A  B", false},
           {"  A", false},
           {" ", false}}) {
    name.clear();
    cartera.Text1.set_text("");
    Type(name, QString::fromUtf8(typed));
    EXPECT_EQ(whole, !Says(name, QStringLiteral("En el selector sólo se verán los nombres de hasta "
                                                "23 letras y sin dos espacios seguidos.")))
        << typed;
  }
}

TEST_F(PortfolioLooksTest, TellsWhatTheDiskHasRefused) {
  ASSERT_GT(store.AgregarSinDatos(store::Codigo("TAZ"), "ASTILLEROS TAZO"), 0);
  AddPortfolio();
  cartera.Show();
  operar.Show();
  const QString portfolio =
      QStringLiteral("El disco no admite la última cartera: se guardará con la próxima.");
  const QString operation =
      QStringLiteral("El disco no admite la última operación: se guardará con la próxima.");
  auto& name = WidgetOf(cartera, cartera.Text1);
  auto& code = WidgetOf(operar, operar.Text3);
  const auto add = [&] {
    Type(name, QStringLiteral("A"));
    cartera.Text2.set_text("B");
    cartera.Text3.set_text("1");
    cartera.Text4.set_text("1");
    operar.Text2.set_text("1");
    operar.Text3.set_text("TAZ");
    operar.Text4.set_text("1");
    support::Settle();
    WidgetOf<QPushButton>(cartera, cartera.Command1).click();
    WidgetOf<QPushButton>(operar, operar.Command1).click();
    support::Settle();
  };
  for (const char* file : {"Carteras.QRT", "Operaciones.QRT"}) {
    std::filesystem::remove(dir.Path(file));
    std::filesystem::create_directory(dir.Path(file));
  }
  add();
  EXPECT_TRUE(Says(name, portfolio) && Says(code, operation));
  for (const char* file : {"Carteras.QRT", "Operaciones.QRT"}) {
    std::filesystem::remove(dir.Path(file));
  }
  add();
  EXPECT_FALSE(Says(name, portfolio) || Says(code, operation));
}

TEST_F(PortfolioLooksTest, TellsWhichPortfolioIsMeant) {
  operar.Show();
  auto& combo = WidgetOf<QComboBox>(operar, operar.Combo1);
  support::Settle();
  EXPECT_TRUE(Says(combo, qt::HowToAddPortfolios()));
  AddPortfolio();
  operar.Show();
  const auto told = [&] {
    return Says(combo, QStringLiteral("Se anota en ") + QString::fromUtf8(kLongName));
  };
  EXPECT_TRUE(support::WaitFor(told));
  operar.Combo1.set_text("otra");
  EXPECT_TRUE(support::WaitFor([&] { return !told(); }));
}

TEST_F(PortfolioLooksTest, DetailsAreReadOutCellByCell) {
  AddPortfolio();
  for (const auto& [side, shares] : {std::pair{portfolios::Operacion::kCompra, 1200},
                                     std::pair{portfolios::Operacion::kVenta, 200}}) {
    ASSERT_TRUE(portfolio_store.AgregarOperacion(support::Order("TAZ", shares, 1250.5F, side)));
  }
  detalle.Show();
  detalle.Combo1.Click(0);
  detalle.List2.Click(0);
  auto& operations = WidgetOf<QAbstractItemView>(detalle, detalle.List1);
  ASSERT_TRUE(support::WaitFor([&] { return operations.model()->rowCount() == 2; }));
  EXPECT_EQ(LineOf(WidgetOf<QWidget>(detalle, detalle.List2), 0), "1000  TAZ  1,250.50");
  EXPECT_EQ(LineOf(operations, 0), "C  1200  TAZ  1,250.50");
  EXPECT_EQ(LineOf(operations, 1), "V  200  TAZ  1,250.50");
}

}  // namespace

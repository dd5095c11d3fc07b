#include "qt/look/metastock_looks.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QProgressBar>

#include "../wait.h"
#include "qt/look/dir_box.h"
#include "qt/look/register.h"
#include "qt/ports/qt_platform.h"
#include "support/temp_dir.h"

namespace {

const QString kRefused = QStringLiteral("No hay ningún directorio con esa ruta.");

void Press(QWidget& widget, int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(&widget, &press);
}

bool Says(const QWidget& widget, const QString& text) {
  const auto labels = widget.window()->findChildren<QLabel*>();
  return std::ranges::any_of(labels, [&](const QLabel* label) {
    return label->isVisible() && label->text() == text && label->textFormat() == Qt::PlainText;
  });
}

QString NameOf(QWidget& widget) {
  return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

class MetaStockLooksTest : public testing::Test {
 protected:
  MetaStockLooksTest() {
    qt::RegisterLooks(looks);
    meta.Dir1.on_change = [this] { ++changes; };
    meta.C1.on_click = [this] { saved.push_back(meta.Dir1.path()); };
    std::filesystem::create_directory(bars);
  }
  ~MetaStockLooksTest() override { platform.desktop().Clear(); }

  template <typename W>
  W& WidgetOf(const platform::Window& window, platform::Control& control) {
    return *static_cast<W*>(platform.desktop().FrameOf(window)->look().widget_of(control));
  }
  QLineEdit& ShowField() {
    meta.Show();
    meta.Command1.Click();
    EXPECT_TRUE(support::WaitFor(
        [&] { return WidgetOf<QWidget>(meta, meta.F1).isVisible() && !meta.F1.dirty(); }));
    return WidgetOf<qt::DirBoxWidget>(meta, meta.Dir1).field();
  }

  support::TempDir dir;
  const std::string bars = dir.Path("Barras <b>");
  base::ProgramDir files{dir.path()};
  qt::Looks looks;
  qt::QtPlatform platform{looks};
  metastock::Stores stores;
  metastock::Meta meta{platform, files, stores};
  metastock::Form1 form{platform};
  int changes = 0;
  std::vector<std::string> saved;
};

TEST_F(MetaStockLooksTest, ThePanelsComeAndGoWithoutMovingAnything) {
  meta.Show();
  support::Settle();
  const QWidget& outer = *platform.desktop().FrameOf(meta)->outer();
  auto& intraday = WidgetOf<QPushButton>(meta, meta.Command1);
  auto& daily = WidgetOf<QPushButton>(meta, meta.Command2);
  const QString hint =
      QStringLiteral("Elija arriba Intradias o Diario para ver su directorio y sus empresas.");
  const QSize size = outer.size();
  const QPoint save = WidgetOf<QWidget>(meta, meta.C1).pos();
  EXPECT_TRUE(Says(outer, hint));
  for (const bool first : {true, false, false}) {
    QPushButton& pressed = first ? intraday : daily;
    pressed.click();
    support::Settle();
    EXPECT_EQ(WidgetOf<QWidget>(meta, meta.F1).isVisible(), first);
    EXPECT_EQ(WidgetOf<QWidget>(meta, meta.F2).isVisible(), !first);
    EXPECT_EQ(intraday.isChecked(), first);
    EXPECT_EQ(daily.isChecked(), !first);
    EXPECT_FALSE(Says(outer, hint));
    EXPECT_EQ(outer.size(), size);
    EXPECT_EQ(WidgetOf<QWidget>(meta, meta.C1).pos(), save);
  }
  EXPECT_LE(outer.minimumSizeHint().width(), 780);
  EXPECT_LE(outer.minimumSizeHint().height(), 450);
  QLineEdit& field = WidgetOf<qt::DirBoxWidget>(meta, meta.Dir2).field();
  EXPECT_EQ(NameOf(field), "Directorio");
  const auto labels = outer.findChildren<QLabel*>();
  EXPECT_TRUE(
      std::ranges::any_of(labels, [&](const QLabel* label) { return label->buddy() == &field; }));
}

TEST_F(MetaStockLooksTest, ATypedPathCountsWithEnterAndOneThatIsNoDirectoryStaysToBeMended) {
  QLineEdit& field = ShowField();
  const struct {
    QString typed;
    const std::string& path;
    bool refused;
  } cases[] = {{QString::fromStdString(bars) + u'/', bars, false},
               {QStringLiteral("relativo"), bars, true},
               {QStringLiteral("/no/hay <b>"), bars, true},
               {QString::fromStdString("  " + dir.path()), dir.path(), false}};
  for (const auto& [typed, path, refused] : cases) {
    field.setText(typed);
    Press(field, Qt::Key_Return);
    EXPECT_EQ(meta.Dir1.path(), path) << typed.toStdString();
    EXPECT_EQ(field.text(), refused ? typed : QString::fromStdString(path));
    EXPECT_EQ(Says(field, kRefused), refused) << typed.toStdString();
  }
  EXPECT_EQ(changes, 2);
  EXPECT_TRUE(saved.empty()) << "Enter is not that of the dialog";
}

TEST_F(MetaStockLooksTest, SavingTakesOverWhatIsTypedAndNeverAnotherPathInstead) {
  QLineEdit& field = ShowField();
  auto& save = WidgetOf<QPushButton>(meta, meta.C1);
  field.setText(QStringLiteral("/no/hay"));
  save.click();
  EXPECT_TRUE(saved.empty() && Says(field, kRefused));
  field.setText(QString::fromStdString(bars));
  save.click();
  ASSERT_EQ(saved, std::vector{bars});
  field.setText(QStringLiteral("/no/hay"));
  meta.Command2.Click();
  EXPECT_TRUE(support::WaitFor([&] { return !field.isVisible(); }));
  EXPECT_EQ(field.text().toStdString(), bars) << "given up with its panel";
}

TEST_F(MetaStockLooksTest, ADirectoryIsLookedForInADialogThatNobodyWaitsFor) {
  QLineEdit& field = ShowField();
  auto* browse = field.parentWidget()->findChild<QPushButton*>();
  ASSERT_EQ(NameOf(*browse), "Examinar...");
  browse->click();
  auto* dialog = field.parentWidget()->findChild<QFileDialog*>();
  ASSERT_TRUE(dialog && dialog->isVisible());
  dialog->setDirectory(QString::fromStdString(dir.path()));
  dialog->selectFile(QString::fromStdString(bars));
  static_cast<QDialog*>(dialog)->accept();
  EXPECT_EQ(meta.Dir1.path(), bars);
  EXPECT_EQ(field.text().toStdString(), bars);
  browse->click();
  meta.Unload();  // and the dialog goes with the window
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(std::ranges::none_of(QApplication::topLevelWidgets(), [](const QWidget* widget) {
    return qobject_cast<const QFileDialog*>(widget);
  }));
}

TEST_F(MetaStockLooksTest, TheDownloadTellsHowFarItIs) {
  form.Show();
  auto& bar = WidgetOf<QProgressBar>(form, form.Avance);
  const auto told = [&](const char* text) {
    return support::WaitFor([&] { return bar.text() == QString::fromUtf8(text); });
  };
  EXPECT_TRUE(told("")) << "no directory yet";
  EXPECT_TRUE(Says(bar, QStringLiteral("No se ha pedido nada todavía.")));
  EXPECT_GT(bar.maximum(), bar.minimum()) << "nothing that runs for ever";
  form.Avance.set_max(40);
  form.Avance.set_value(12);
  form.Label2.set_caption("Pidiendo <b>X   a Fecha: 1000426");
  EXPECT_TRUE(told("12 de 40 empresas"));
  EXPECT_TRUE(Says(bar, QStringLiteral("Pidiendo <b>X   a Fecha: 1000426")));
  form.Avance.set_max(12);
  EXPECT_TRUE(told("12 de 12 empresas: terminado"));
  EXPECT_EQ(NameOf(bar), "Empresas recuperadas");
  EXPECT_EQ(NameOf(WidgetOf<QWidget>(form, form.List1)), "Empresas MetaStock");
}

}  // namespace

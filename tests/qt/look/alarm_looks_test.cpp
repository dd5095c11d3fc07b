#include "qt/look/alarm_looks.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRadioButton>

#include "../wait.h"
#include "qt/look/register.h"
#include "qt/ports/qt_platform.h"
#include "support/temp_dir.h"

namespace {

class AlarmLooksTest : public testing::Test {
 protected:
  AlarmLooksTest() { qt::RegisterLooks(looks); }
  ~AlarmLooksTest() override { platform.desktop().Clear(); }

  template <typename W>
  W& WidgetOf(const platform::Window& window, platform::Control& control) {
    return *static_cast<W*>(platform.desktop().FrameOf(window)->look().widget_of(control));
  }
  static void DoubleClick(QWidget& widget) {
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(3, 3), widget.mapToGlobal(QPointF(3, 3)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }

  support::TempDir dir;
  base::ProgramDir files{dir.path()};
  qt::Looks looks;
  qt::QtPlatform platform{looks};
  std::int16_t FaseCierre = 0;
  alarms::AlarmTable table{files};
  alarms::FormAlarm defined{platform, table, FaseCierre};
  alarms::ListAlarm fired{platform, FaseCierre};
  store::InstrumentStore store;
  alarms::APrecio dialog{platform, store, table, defined};
};

TEST_F(AlarmLooksTest, OfTheTwoConditionsOneIsOnAndTheModelSaysWhich) {
  dialog.tipo = alarms::AlarmTable::kPrecio;
  dialog.Show();
  auto& above = WidgetOf<QRadioButton>(dialog, dialog.Option1);
  auto& below = WidgetOf<QRadioButton>(dialog, dialog.Option2);
  EXPECT_TRUE(above.isChecked());
  below.click();
  EXPECT_TRUE(dialog.Option2.value());
  EXPECT_TRUE(support::WaitFor([&] { return !above.isChecked(); }));
  below.click();
  EXPECT_TRUE(below.isChecked());

  dialog.tipo = alarms::AlarmTable::kVolumen;
  dialog.Show();
  EXPECT_TRUE(support::WaitFor([&] { return above.isChecked() && !below.isChecked(); }));
  EXPECT_FALSE(below.isEnabled());
  auto& value = WidgetOf<QLineEdit>(dialog, dialog.Text2);
  EXPECT_EQ(value.accessibleName(), "Volumen");
  QLabel* label = nullptr;
  for (auto* each : value.window()->findChildren<QLabel*>()) {
    if (each->buddy() == &value) label = each;
  }
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->text(), "&Volumen");
}

TEST_F(AlarmLooksTest, PutsInTheCodeOfASuggestionAlone) {
  ASSERT_GT(store.AgregarSinDatos(store::Codigo("TAZ"), "ASTILLEROS <b>TAZO"), 0);
  dialog.Show();
  auto& code = WidgetOf<QLineEdit>(dialog, dialog.Text1);
  auto& value = WidgetOf<QLineEdit>(dialog, dialog.Text2);
  const auto type = [](QWidget& widget, int key, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &press);
  };
  ASSERT_TRUE(support::WaitFor([&] { return code.hasFocus(); }));
  type(code, Qt::Key_A, QStringLiteral("a"));
  auto* popup = code.findChild<QAbstractItemView*>();
  ASSERT_TRUE(popup && popup->isVisible());
  EXPECT_EQ(popup->model()->index(0, 0).data().toString(), "TAZ   ASTILLEROS <b>TAZO");
  type(code, Qt::Key_Return);
  EXPECT_TRUE(popup->isHidden() && dialog.Text1.text() == "a");
  type(code, Qt::Key_Z, QStringLiteral("z"));
  type(code, Qt::Key_Down);
  type(code, Qt::Key_Return);
  EXPECT_EQ(code.text(), "TAZ");
  EXPECT_EQ(dialog.Text1.text(), "TAZ");
  EXPECT_TRUE(popup->isHidden() && code.hasFocus());

  code.setText(QStringLiteral("astill"));
  type(code, Qt::Key_E, QStringLiteral("e"));
  EXPECT_TRUE(value.hasFocus() && popup->isHidden());
  EXPECT_EQ(dialog.Text1.text(), "ASTILLE");
}

TEST_F(AlarmLooksTest, ARedBandStandsWhileTheProgramBeeps) {
  fired.Show();
  QWidget& outer = *platform.desktop().FrameOf(fired)->outer();
  auto& list = WidgetOf<QWidget>(fired, fired.List1);
  const auto band_shows = [&] { return list.y() > 30; };
  support::Settle();
  EXPECT_FALSE(band_shows());
  for (int i = 0; i < 2; ++i) {  // it comes back with the next alarm
    fired.Disparada("100018 ACERIAS REINOSEDA    A 12.31  Orden: vender");
    EXPECT_TRUE(support::WaitFor(band_shows));
    DoubleClick(outer);
    EXPECT_FALSE(fired.Timer1.enabled());
    EXPECT_TRUE(support::WaitFor([&] { return !band_shows(); }));
  }
  EXPECT_TRUE(fired.visible());
  fired.Disparada("otra");
  fired.Command5_Click();
  fired.Show();
  support::Settle();
  EXPECT_FALSE(band_shows());
}

}  // namespace

#include "qt/look/colores_look.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>

#include "../wait.h"
#include "qt/look/theme.h"
#include "qt/ports/qt_platform.h"
#include "support/temp_dir.h"

namespace {

class ColoresLook : public testing::Test {
 protected:
  ColoresLook() {
    qt::ApplyTheme(*qApp);
    looks.Add<views::Colores>(qt::MakeColoresLook);
    window.steps.Campos = [](int ventana) -> std::span<const std::string_view> {
      static constexpr std::string_view kShares[]{"Ant"}, kOthers[]{"Anterior"};
      return ventana == 1 ? kShares : kOthers;
    };
    window.Show();
  }
  ~ColoresLook() override { platform.desktop().Clear(); }

  [[nodiscard]] QWidget& Dialog() { return *platform.desktop().FrameOf(window)->outer(); }
  [[nodiscard]] QWidget& WidgetOf(platform::Control& control) {
    return *platform.desktop().FrameOf(window)->look().widget_of(control);
  }
  [[nodiscard]] bool Shows(const QString& text) {
    return support::WaitFor([&] {
      const auto labels = Dialog().findChildren<QLabel*>();
      return std::ranges::any_of(labels,
                                 [&](const QLabel* label) { return label->text() == text; });
    });
  }

  support::TempDir directory;
  base::ProgramDir dir{directory.path()};
  qt::Looks looks;
  qt::QtPlatform platform{looks};
  views::ConfigVentanas config = views::LoadConfigVentana(dir);
  views::Colores window{platform, dir, config};
};

TEST_F(ColoresLook, FitsOnASmallScreenAtAnySizeOfType) {
  window.G.set_font_size(72);
  ASSERT_TRUE(support::WaitFor([&] { return !window.G.dirty(); }));
  const QSize least = Dialog().minimumSizeHint();
  EXPECT_LE(least.width(), 784);
  EXPECT_LE(least.height(), 452);
}

TEST_F(ColoresLook, ASampleIsPickedByKeyAndTellsWhatItIsOf) {
  QWidget& rising = WidgetOf(window.Label3);
  EXPECT_EQ(rising.accessibleName(), WidgetOf(window.Label27).accessibleName());
  EXPECT_NE(rising.accessibleDescription(), WidgetOf(window.Label27).accessibleDescription());
  QTimer::singleShot(0, &Dialog(), [] {
    auto* box = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->currentColor(), QColor(Qt::green));
    box->setCurrentColor(Qt::blue);
    box->accept();
  });
  QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
  QApplication::sendEvent(&rising, &space);
  EXPECT_EQ(config[1].VentanaSube, 0xFF0000);
}

TEST_F(ColoresLook, FollowsLinesAndTheChosenWindow) {
  EXPECT_TRUE(Shows("finas"));
  window.Command2.Click();
  EXPECT_TRUE(Shows("dobles"));
  auto& flag = static_cast<QCheckBox&>(WidgetOf(window.Check1[0]));
  EXPECT_EQ(flag.text(), "Ant");
  window.Option2.set_value(true);
  EXPECT_TRUE(support::WaitFor([&] { return flag.text() == "Anterior"; }));
}

}  // namespace

#include "qt/look/chart_widget.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QWheelEvent>

#include "../wait.h"
#include "charts/graficos.h"
#include "qt/look/binders.h"
#include "qt/look/custom_plot.h"
#include "qt/look/register.h"
#include "qt/ports/qt_platform.h"
#include "support/temp_dir.h"

namespace {

const store::Codigo kCode("TEF");

class ChartWidgetTest : public testing::Test {
 protected:
  ChartWidgetTest() {
    chart.AddSerie(kCode);
    widget.resize(600, 400);
    binders.Bind(chart, widget);
    QObject::connect(&plot, &QCustomPlot::afterReplot, &widget, [this] { ++replots; });
  }

  /// A record a second from ten o'clock on.
  void Feed(int n) {
    for (; n > 0; --n, ++fed) {
      const auto time = static_cast<float>(100000 + fed / 60 * 100 + fed % 60);
      const auto number = static_cast<float>(fed);
      chart.AddReg(kCode, {.cierre = 10 + number / 100,
                           .maximo = 11,
                           .minimo = 9,
                           .volumen = 100 * number,
                           .fecha = 1000426,
                           .hora = time});
    }
    chart.ShowFeed(kCode);
  }
  void ShowWith(int records) {
    Feed(records);
    widget.show();
    ASSERT_TRUE(support::WaitFor([this] { return replots > 0; }));
    support::Settle();
  }
  bool Press(int key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, with);
    QApplication::sendEvent(&widget, &press);
    return press.isAccepted();
  }
  void Mouse(QEvent::Type type, const QPointF& at) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
  void Wheel(const QPointF& at, int by) {
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, by}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
  }
  QString Told() { return QAccessible::queryAccessibleInterface(&widget)->text(kDescription); }

  static constexpr auto kDescription = QAccessible::Description;
  charts::Chart chart;
  qt::FrameClock clock;
  qt::ChartWidget widget{chart};
  QCustomPlot& plot = *widget.findChild<QCustomPlot*>();
  qt::Binders binders{widget, clock};
  int replots = 0, fed = 0;
};

TEST_F(ChartWidgetTest, WhatIsNewIsDrawnAQuarterOfASecondApart) {
  ShowWith(100);
  QElapsedTimer since;
  qint64 shortest = std::numeric_limits<qint64>::max();
  const int before = replots;
  QObject::connect(&plot, &QCustomPlot::afterReplot, &widget, [&] {
    if (since.isValid()) shortest = std::min(shortest, since.elapsed());
    since.start();
  });
  EXPECT_TRUE(support::WaitFor([&] {
    Feed(1);
    return replots == before + 4;
  }));
  EXPECT_GE(shortest, qt::ChartWidget::kGapMs - 1);
  EXPECT_TRUE(support::WaitFor([&] { return plot.graph(0)->dataCount() == fed; }))
      << "the last ones too";
}

TEST_F(ChartWidgetTest, NothingIsDrawnWhileItCantBeSeen) {
  ShowWith(10);
  for (const bool covered : {false, true}) {
    QWidget cover(&widget);
    cover.setAttribute(Qt::WA_OpaquePaintEvent);
    cover.resize(widget.size());
    covered ? cover.show() : widget.hide();
    support::Settle();
    const int before = replots;
    Feed(10);
    for (int i = 0; i < 5; ++i) support::Settle();
    EXPECT_EQ(replots, before);
    covered ? cover.hide() : widget.show();
    clock.Wake();
    EXPECT_TRUE(support::WaitFor([&] { return plot.graph(0)->dataCount() == fed; }));
  }
}

TEST_F(ChartWidgetTest, AllWorksByTheKeyboard) {
  ShowWith(600);
  EXPECT_TRUE(Told().startsWith(QStringLiteral("Último 15.99, entre 10.00 y 15.99")));
  struct Case {
    int key;
    Qt::KeyboardModifier with;
    const char* told;
  };
  for (const Case& each : {Case{Qt::Key_Left, Qt::NoModifier, "Hora 10:09:59, Precio 15.99"},
                           Case{Qt::Key_Left, Qt::NoModifier, "Hora 10:09:58, Precio 15.98"},
                           Case{Qt::Key_Left, Qt::ControlModifier, "Hora 10:09:48, Precio 15.88"},
                           Case{Qt::Key_Right, Qt::KeypadModifier, "Hora 10:09:49, Precio 15.89"},
                           Case{Qt::Key_Escape, Qt::NoModifier, "Último"}}) {
    EXPECT_TRUE(Press(each.key, each.with));
    EXPECT_TRUE(Told().startsWith(QString::fromUtf8(each.told))) << Told().toStdString();
  }
  EXPECT_FALSE(Press(Qt::Key_Escape)) << "is for whom it concerns";

  Press(Qt::Key_Plus, Qt::ShiftModifier);
  Press(Qt::Key_Plus, Qt::KeypadModifier);
  const charts::Vista closer = chart.vista();
  EXPECT_NEAR(closer.hasta - closer.desde, 0.64 * 600, 1);
  Press(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_LT(chart.vista().desde, closer.desde);
  // The crosshair takes what is seen along.
  Press(Qt::Key_Left);
  for (int i = 0; i < 60; ++i) Press(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_TRUE(Told().startsWith(QStringLiteral("Hora 10:00:00")));
  EXPECT_EQ(chart.vista().desde, 36000);
  Press(Qt::Key_Home);
  EXPECT_TRUE(chart.ve_todo());
}

TEST_F(ChartWidgetTest, TheWheelLooksCloserWhereThePointerIsAndDraggingMoves) {
  ShowWith(600);
  const QPointF at(200, 100);
  const auto time_at = [this](double x) { return plot.xAxis->pixelToCoord(x - plot.x()); };
  const double time = time_at(at.x());
  const int before = replots;
  Wheel(at, 240);
  EXPECT_TRUE(support::WaitFor([&] { return replots > before; })) << "at once";
  EXPECT_NEAR(time_at(at.x()), time, 1);
  const charts::Vista closer = chart.vista();
  Mouse(QEvent::MouseButtonPress, at);
  Mouse(QEvent::MouseMove, at + QPointF(50, 0));
  Mouse(QEvent::MouseButtonRelease, at + QPointF(50, 0));
  EXPECT_LT(chart.vista().desde, closer.desde);
  support::Settle();
  EXPECT_NEAR(time_at(at.x() + 50), time, 1) << "goes with the hand";
  EXPECT_TRUE(Told().startsWith(QStringLiteral("Hora 10:"))) << "the crosshair follows";
  Mouse(QEvent::MouseButtonDblClick, at);
  EXPECT_TRUE(chart.ve_todo());
}

TEST_F(ChartWidgetTest, ACommandIsOfferedWhereSomebodyRunsIt) {
  ShowWith(5);
  EXPECT_FALSE(Press(Qt::Key_M) || Press(Qt::Key_B));
  std::string heard;
  chart.on_command = [&](int command) { heard += std::to_string(command) + ' '; };
  chart.on_bar_shown = [&] { heard += "bar "; };
  chart.on_bar_hidden = [&] { heard += "none "; };
  const int height = plot.height();
  EXPECT_TRUE(Press(Qt::Key_M) && Press(Qt::Key_B));
  EXPECT_EQ(plot.height(), height - qt::kChartBarHeight);
  for (QPushButton* button : widget.findChildren<QPushButton*>()) {
    if (button->accessibleName().startsWith(QStringLiteral("Ajustar"))) button->click();
  }
  EXPECT_TRUE(Press(Qt::Key_B));
  EXPECT_EQ(heard, "10 bar 550 none ");
  EXPECT_EQ(plot.height(), height);
}

TEST_F(ChartWidgetTest, OutOfSightItsLastPictureStaysWhateverTheSize) {
  ShowWith(600);
  chart.set_visible(false);
  widget.resize(400, 300);
  const int before = replots;
  support::Settle();
  EXPECT_TRUE(plot.isHidden());
  EXPECT_EQ(replots, before);
  const QImage still = widget.grab().toImage();
  int inked = 0;
  for (int x = 20; x < 380; ++x) {
    for (int y = 20; y < 280; ++y) inked += still.pixel(x, y) != still.pixel(3, 3);
  }
  EXPECT_GT(inked, 300);
  chart.set_visible(true);
  EXPECT_TRUE(support::WaitFor([&] { return plot.isVisible() && plot.width() < 400; }));
}

TEST_F(ChartWidgetTest, FollowsALineThatLosesItsBeginning) {
  constexpr int kMore = 262'145;
  ShowWith(10);
  for (int i = 0; i < kMore; ++i) chart.AddReg(kCode, {.cierre = 12, .hora = 110000});
  chart.AddMedia(5);
  chart.ShowFeed(kCode);
  EXPECT_TRUE(support::WaitFor([&] { return plot.graphCount() == 2; }));
  for (int i = 0; i < 2; ++i) {
    const auto& points = chart.linea(static_cast<std::size_t>(i)).puntos;
    ASSERT_EQ(static_cast<std::size_t>(plot.graph(i)->dataCount()), points.size());
    EXPECT_EQ(plot.graph(i)->data()->at(0)->key, points.front().x);
  }
  EXPECT_LT(plot.graph(0)->dataCount(), kMore);
}

TEST_F(ChartWidgetTest, DrawsAnyNumbersAtAnySize) {
  constexpr float kInf = std::numeric_limits<float>::infinity();
  const std::vector<float> odd{1e30F, -3e38F, NAN, kInf, 1e-30F, 3e38F, 0, 235959, -kInf};
  for (std::size_t i = 0; i < 3000; ++i) {
    const auto pick = [&](std::size_t by) { return odd[i / by % odd.size()]; };
    chart.AddReg(kCode, {.cierre = pick(1),
                         .maximo = pick(2),
                         .minimo = pick(3),
                         .volumen = pick(4),
                         .fecha = pick(500),
                         .hora = pick(200)});
  }
  ShowWith(0);
  for (const QSize size : {QSize(1, 1), QSize(70, 50), QSize(300, 175), QSize(900, 600)}) {
    widget.resize(size);
    for (const int key : {Qt::Key_Left, Qt::Key_Plus, Qt::Key_Home}) {
      Press(key);
      support::Settle();
      EXPECT_FALSE(widget.grab().isNull());
    }
  }
}

TEST_F(ChartWidgetTest, APictureIsWrittenWholeOrNotAtAll) {
  const support::TempDir dir;
  const auto path = [&dir](const char* name) { return QString::fromStdString(dir.Path(name)); };
  QPixmap picture(40, 30);
  picture.fill(Qt::red);
  ASSERT_TRUE(qt::SavePicture(picture, path("a.png")));
  EXPECT_EQ(QImage(path("a.png")).size(), picture.size());
  EXPECT_FALSE(qt::SavePicture(picture, path(""))) << "a directory";
  EXPECT_FALSE(qt::SavePicture(picture, path("none/a.png")));
}

TEST(ChartLook, StaysInSightWhileItsBarComesAndGoes) {
  const support::TempDir dir;
  const base::ProgramDir files{dir.path()};
  qt::Looks looks;
  qt::RegisterLooks(looks);
  looks.Add<platform::Window>([](platform::Window&, qt::FrameClock&) {
    auto* area = new QMdiArea;
    area->resize(900, 700);
    return qt::Look{.widget = area, .place = qt::Place::main, .area = area};
  });
  qt::QtPlatform platform{looks};
  platform::Window main{platform};
  main.Show();
  const store::InstrumentStore store;
  const charts::TickFiles ticks{files, store};
  std::int16_t FaseCierre = 0;
  charts::Medias medias{platform, FaseCierre};
  charts::Graficos window{platform, store, ticks, medias};
  window.Show();
  window.Empezar(kCode);
  QWidget& widget = *platform.desktop().FrameOf(window)->look().widget;
  support::Settle();
  for (const int margin : {1, 0}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_B, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
    support::Settle();
    EXPECT_TRUE(window.Gr1.visible() && window.InternalResize == 0);
    EXPECT_EQ(window.ChartMargin, margin);
  }
  platform.desktop().FrameOf(window)->outer()->resize(500, 300);
  EXPECT_FALSE(window.Gr1.visible());
  platform.desktop().Clear();
}

TEST(AverageLook, LocksTheOtherWindowsWhileItIsSeen) {
  qt::Looks looks;
  qt::RegisterLooks(looks);
  qt::QtPlatform platform{looks};
  std::int16_t FaseCierre = 0;
  charts::Medias dialog{platform, FaseCierre};
  std::string answer = "?";
  dialog.Pedir([&](const std::string& periods) { answer = periods; });
  QWidget& outer = *platform.desktop().FrameOf(dialog)->outer();
  EXPECT_EQ(QApplication::activeModalWidget(), &outer);
  auto* field = outer.findChild<QLineEdit*>();
  field->insert(QStringLiteral("20"));
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(field, &enter);
  EXPECT_EQ(answer, "20");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  platform.desktop().Clear();
}

}  // namespace

#include "qt/look/ticket_look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QPushButton>

#include "../wait.h"
#include "qt/look/grid_widget.h"
#include "qt/look/ink.h"
#include "qt/look/small_widgets.h"
#include "qt/ports/qt_desktop.h"
#include "qt/ports/twips.h"
#include "support/memory_platform.h"

namespace {

/// Tickets as they stand in the area of a main window.
class TicketLookTest : public testing::Test {
 protected:
  class Main : public platform::Window {
    using Window::Window;
  };

  TicketLookTest() {
    area.resize(1200, 700);
    area.show();
    looks.Add<Main>([this](Main&, qt::FrameClock&) {
      return qt::Look{.widget = new QWidget, .place = qt::Place::main, .area = &area};
    });
    looks.Add<views::Ticker2>(qt::MakeTicketLook);
    main.Load();
  }

  // The in-memory platform has a desktop of its own, so this one is told by hand.
  void Open(views::Ticker2& ticket) {
    ticket.Show();
    desktop.Shown(ticket);
    support::Settle();
  }
  void Close(views::Ticker2& ticket) {
    ticket.Unload();
    desktop.Closed(ticket);
  }
  [[nodiscard]] QWidget* Frame(views::Ticker2& ticket) { return desktop.FrameOf(ticket)->outer(); }
  template <typename W>
  W& WidgetOf(views::Ticker2& ticket, platform::Control& control) {
    return *static_cast<W*>(desktop.FrameOf(ticket)->look().widget_of(control));
  }
  /// As the double click on the selling total does once the slide is over.
  static void SetInnerBottom(views::Ticker2& ticket, int bottom) {
    platform::Rect rect = ticket.rect();
    rect.height += bottom - ticket.inner_height();
    ticket.set_rect(rect);
  }

  support::MemoryPlatform outside;
  store::InstrumentStore store;
  std::int16_t phase = 0;
  views::Form2 tape{outside, phase};
  QMdiArea area;
  qt::Looks looks;
  Main main{outside};
  qt::QtDesktop desktop{looks, outside.windows};
};

TEST_F(TicketLookTest, FitsItsShortFormAndHidesTheListThere) {
  views::Ticker2 ticket(outside, store, tape);
  Open(ticket);
  const int inner = ticket.inner_height();
  EXPECT_GT(inner, ticket.Label6.rect().top + ticket.Label6.rect().height);
  EXPECT_LT(inner, ticket.List1.rect().top);
  EXPECT_FALSE(WidgetOf<qt::GridWidget>(ticket, ticket.List1).isVisible());

  const int bottom = ticket.List1.rect().top + ticket.List1.rect().height;
  SetInnerBottom(ticket, bottom);
  auto& list = WidgetOf<qt::GridWidget>(ticket, ticket.List1);
  EXPECT_TRUE(support::WaitFor([&] { return list.isVisible(); }));
  EXPECT_EQ(ticket.inner_height(), bottom);
  EXPECT_EQ(list.geometry().bottom() + 1, list.parentWidget()->height());
  Close(ticket);
}

TEST_F(TicketLookTest, ComesUpBesideTheOthersAndGrowsInSight) {
  views::Ticker2 one(outside, store, tape), two(outside, store, tape), three(outside, store, tape);
  for (auto* ticket : {&one, &two, &three}) Open(*ticket);
  const QRect first = Frame(one)->geometry(), second = Frame(two)->geometry();
  EXPECT_FALSE(first.intersects(second));
  EXPECT_FALSE(first.intersects(Frame(three)->geometry()));
  EXPECT_FALSE(second.intersects(Frame(three)->geometry()));
  SetInnerBottom(two, two.inner_height() + 3000);
  EXPECT_TRUE(support::WaitFor([&] { return Frame(two)->height() > second.height(); }));
  EXPECT_TRUE(area.viewport()->rect().contains(Frame(two)->geometry()));
  for (auto* ticket : {&one, &two, &three}) Close(*ticket);
}

TEST_F(TicketLookTest, LabelsStandAndScaleWithTheirModels) {
  views::Ticker2 ticket(outside, store, tape);
  Open(ticket);
  auto& last = WidgetOf<qt::LabelWidget>(ticket, ticket.Ultimo);
  const double points = last.font().pointSizeF();
  Frame(ticket)->resize(Frame(ticket)->width() * 3 / 2, Frame(ticket)->height() * 2);
  support::Settle();
  EXPECT_GT(ticket.ReSize1.scale_x(), 1.4);
  EXPECT_EQ(last.geometry(), qt::ToPixels(ticket.Ultimo.rect()));
  EXPECT_NEAR(last.font().pointSizeF(), points * ticket.ReSize1.scale_x(), 0.1);
  Close(ticket);
}

TEST_F(TicketLookTest, KeysDoWhatTheMouseDoes) {
  views::Ticker2 ticket(outside, store, tape);
  int toggled = 0;
  ticket.Label6.on_double_click = [&toggled] { ++toggled; };
  Open(ticket);
  QWidget* inner = desktop.FrameOf(ticket)->look().widget;
  inner->findChild<QPushButton*>()->click();
  EXPECT_EQ(toggled, 1);
  QKeyEvent close(QEvent::KeyPress, Qt::Key_F4, Qt::ControlModifier);
  QApplication::sendEvent(inner, &close);
  EXPECT_FALSE(ticket.loaded());
  Close(ticket);
}

TEST_F(TicketLookTest, SpeaksItsNumbersOrWhatWouldStandThere) {
  views::Ticker2 ticket(outside, store, tape);
  Open(ticket);
  auto& best = WidgetOf<qt::LabelWidget>(ticket, ticket.vc[0]);
  ticket.vc[0].set_caption(" ");
  support::Settle();
  EXPECT_EQ(best.accessibleName().toStdString(), ticket.vc[0].tool_tip());
  ticket.vc[0].set_caption(" 1,250");
  EXPECT_TRUE(support::WaitFor([&] { return best.accessibleName() == "1,250"; }));
  Close(ticket);
}

TEST_F(TicketLookTest, ABookIsPaintedOnceAFrame) {
  views::Ticker2 ticket(outside, store, tape);
  Open(ticket);
  auto& best = WidgetOf<qt::LabelWidget>(ticket, ticket.pc[0]);
  for (const char* price : {"9.25", "9.26", "9.27"}) ticket.pc[0].set_caption(price);
  EXPECT_NE(best.text(), "9.27");
  EXPECT_TRUE(support::WaitFor([&] { return best.text() == "9.27"; }));
  Frame(ticket)->hide();
  ticket.pc[0].set_caption("9.28");
  support::Settle();
  EXPECT_EQ(best.text(), "9.27") << "hidden";
  Close(ticket);
}

TEST(Ink, EdgesOnlyTextThatItsGroundWouldSwallow) {
  struct Case {
    QRgb ink, ground;
    bool edged, dark;
  };
  for (const Case& c : {Case{0xffffff, 0xc0c0c0, true, true}, Case{0xff0000, 0x008000, true, true},
                        Case{0x000080, 0x800000, true, false}, Case{0xffffff, 0xffffff, true, true},
                        Case{0xffffff, 0x008000, false, {}}, Case{0x00ffff, 0x008000, false, {}},
                        Case{0x800000, 0xffffff, false, {}}, Case{0x00ff00, 0x000000, false, {}}}) {
    const auto edge = qt::EdgeFor(QColor(c.ink), QColor(c.ground));
    ASSERT_EQ(edge.has_value(), c.edged) << std::hex << c.ink << " on " << c.ground;
    EXPECT_TRUE(!edge || (edge->lightness() < 128) == c.dark) << std::hex << c.ink;
  }
}

TEST(LabelWidget, TextOfTheGroundsColourIsSeenAndNeverCut) {
  const auto dark_dots = [](const QImage& image, int from, int to) {
    int dots = 0;
    for (int x = from; x < to; ++x) {
      for (int y = 0; y < image.height(); ++y) dots += qGray(image.pixel(x, y)) < 128;
    }
    return dots;
  };
  qt::LabelWidget label;
  label.resize(60, 24);
  label.setContentsMargins(8, 0, 8, 0);
  label.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label.set_colors(Qt::white, Qt::white);
  label.ShowText("1");
  const QImage one = label.grab().toImage();
  EXPECT_GT(dark_dots(one, 40, 54), 10);
  EXPECT_EQ(dark_dots(one, 6, 30), 0);
  label.ShowText("123,456,789.25");
  const QImage many = label.grab().toImage();
  EXPECT_GT(dark_dots(many, 7, 14), 5) << "its first figure is there";
  EXPECT_EQ(dark_dots(many, 0, 6) + dark_dots(many, 54, 60), 0);
}

}  // namespace

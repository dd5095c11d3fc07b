#include "qt/look/strip_look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>

#include "../wait.h"
#include "qt/look/main_look.h"
#include "qt/look/theme.h"
#include "support/memory_platform.h"

namespace {

class StripLookTest : public testing::Test {
 protected:
  StripLookTest() {
    qt::ApplyTheme(*qApp);  // its fonts and sizes
    mdi.Label2.set_caption("Instrumentos: 5000");
    mdi.Combo1.AddItem("WWWWWWWWWWWWWWWWWWWWWWWW ");
    mdi.Text1.set_text("999,999,999");
    mdi.Text2.set_text("-999.99%");
    mdi.Text3.set_text("-99,999,999");
    mdi.LT.set_caption("23:59:59");
    mdi.LF.set_caption("26-04-2000");
    look = qt::MakeMainLook(mdi, clock);
    look.widget->show();
  }
  ~StripLookTest() override {
    look.bond.reset();
    delete look.widget;
  }
  [[nodiscard]] QWidget& Of(platform::Control& control) { return *look.widget_of(control); }

  support::MemoryPlatform platform;
  shell::MDI mdi{platform};
  qt::FrameClock clock;
  qt::Look look;
};

TEST_F(StripLookTest, AtEveryWidthAllOfItIsInSightAndTheTabKeyGoesAlongTheLines) {
  const std::vector<platform::Control*> in_order{
      &mdi.Picture2, &mdi.Command2, &mdi.Label1,   &mdi.Combo1,   &mdi.Text1,
      &mdi.Text2,    &mdi.Text3,    &mdi.Command3, &mdi.Command4, &mdi.Command5,
      &mdi.Command6, &mdi.Command1, &mdi.Picture3, &mdi.Check1,   &mdi.Check2};
  auto next = in_order.begin();
  QWidget* stop = &Of(mdi.Picture2);
  do {
    if (next != in_order.end() && stop == &Of(**next)) ++next;
    stop = stop->nextInFocusChain();
  } while (stop != &Of(mdi.Picture2));
  EXPECT_EQ(next, in_order.end());
  for (const int width : {700, 700, 800, 800, 1024, 1024, 1366, 1366, 1700, 1700, 2560, 700}) {
    look.widget->resize(width, 500);
    // It comes and goes without a change of the width as well.
    mdi.Check1.set_visible(!mdi.Check1.visible());
    clock.Wake();
    support::Settle();
    ASSERT_EQ(look.widget->width(), width);
    ASSERT_EQ(Of(mdi.Check1).isVisible(), mdi.Check1.visible());
    QRect before(-1, 0, 1, 1);
    for (platform::Control* control : in_order) {
      if (!control->visible()) continue;
      const QWidget& widget = Of(*control);
      const QRect place = widget.geometry();
      EXPECT_TRUE(widget.parentWidget()->rect().contains(place)) << width;
      const int least = widget.minimumWidth();
      EXPECT_GE(place.width(), least > 0 ? least : widget.minimumSizeHint().width()) << width;
      EXPECT_TRUE(place.left() > before.right() || place.top() > before.bottom()) << width;
      before = place;
    }
    EXPECT_GE(Of(mdi.Picture3).width(), 180) << "the status text at " << width;
    EXPECT_LE(Of(mdi.LF).geometry().right(), width);
  }
}

TEST_F(StripLookTest, AFigureWiderThanUsualIsWholeOrEndsInAnEllipsisAndPushesNothingOut) {
  const std::string usual = mdi.Text1.text(), wide = "1,234,567,890,123,456";
  auto& box = static_cast<QLineEdit&>(Of(mdi.Text1));
  const struct {
    int width;
    const std::string& text;
    bool whole;
  } cases[] = {{1024, usual, true}, {1024, wide, true}, {720, wide, false}, {720, usual, true}};
  for (const auto& [width, text, whole] : cases) {
    look.widget->resize(width, 500);
    mdi.Text1.set_text(text);
    mdi.Text3.set_text("-" + text);
    clock.Wake();
    support::Settle();
    ASSERT_EQ(box.text().toStdString(), text);
    EXPECT_LE(Of(mdi.Text3).geometry().right(), width) << text;
    EXPECT_GE(Of(mdi.Combo1).width(), 86) << text << " at " << width;
    EXPECT_EQ(box.width() > box.fontMetrics().horizontalAdvance(box.text()), whole)
        << text << " at " << width;
    box.home(false);
    const QImage start = box.grab().toImage();
    box.end(false);
    EXPECT_EQ(box.grab().toImage(), start) << "scrolled, instead of an ellipsis";
  }
}

}  // namespace

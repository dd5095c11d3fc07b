#include "qt/look/ticker_widget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include "../wait.h"

namespace {

bool Shows(const QImage& image, QRgb color) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if ((image.pixel(x, y) & 0xFFFFFF) == (color & 0xFFFFFF)) return true;
    }
  }
  return false;
}

TEST(TickerWidget, MovesOnlyWhileSeenAndScrollingWithSomethingToShow) {
  platform::Ticker ticker;
  QWidget window;
  qt::TickerWidget strip(ticker, &window);
  strip.resize(400, 28);
  ticker.set_scrolling(true);
  window.show();
  strip.Refresh();
  EXPECT_FALSE(strip.moving()) << "nothing to show";
  ticker.PonerTexto("IBEX", "I", base::palette::kLightGreen, 80, "");
  strip.Refresh();
  EXPECT_TRUE(strip.moving());
  strip.hide();
  EXPECT_FALSE(strip.moving());
  strip.show();
  EXPECT_TRUE(strip.moving());
  window.hide();
  EXPECT_FALSE(strip.moving());
  window.show();
  ticker.set_scrolling(false);
  strip.Refresh();
  EXPECT_FALSE(strip.moving());
}

TEST(TickerWidget, BringsTextsInTheirPaletteColour) {
  platform::Ticker ticker;
  ticker.PonerTexto("IIIIII", "I", base::palette::kLightMagenta, 80, "");
  ticker.set_scrolling(true);
  qt::TickerWidget strip(ticker);
  strip.resize(300, 28);
  strip.show();
  strip.Refresh();
  EXPECT_TRUE(support::WaitFor([&] { return Shows(strip.grab().toImage(), 0xFF00FF); }));
  strip.Drop();
}

}  // namespace

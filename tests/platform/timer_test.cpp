#include "platform/timer.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"

namespace {

class TimerTest : public testing::Test {
 protected:
  /// The ticks within so many ms.
  int TicksIn(int ms) {
    ticks = 0;
    outside.avanzar(ms);
    return ticks;
  }

  support::MemoryPlatform outside;
  int ticks = 0;
  platform::Timer timer{outside, 1000, true};
};

TEST_F(TimerTest, TicksWhileEnabledWithAnInterval) {
  timer.on_tick = [this] { ++ticks; };
  EXPECT_EQ(TicksIn(999), 0);
  EXPECT_EQ(TicksIn(2001), 3);
  timer.set_enabled(false);
  EXPECT_EQ(TicksIn(5000), 0);
  timer.set_enabled(true);
  EXPECT_TRUE(timer.set_interval(0));
  EXPECT_EQ(TicksIn(100000), 0);
  EXPECT_TRUE(timer.set_interval(65535) && !timer.set_interval(65536));
  EXPECT_EQ(TicksIn(65535), 1);
}

TEST_F(TimerTest, StartsItsIntervalAnewButNotWhenItIsEnabledAgain) {
  timer.on_tick = [this] { ++ticks; };
  outside.avanzar(600);
  EXPECT_TRUE(timer.set_interval(1000));
  EXPECT_EQ(TicksIn(600), 0);
  timer.set_enabled(true);
  EXPECT_EQ(TicksIn(400), 1);
}

TEST_F(TimerTest, DropsTicksThatComeInsideItsOwnHandler) {
  platform::Timer other(outside, 400, true);
  int others = 0, handled = 0;
  other.on_tick = [&] { ++others; };
  timer.on_tick = [&] {
    if (++handled == 1) outside.avanzar(10000);
  };
  outside.avanzar(1000);
  EXPECT_EQ(others, 27);  // goes on meanwhile: 11 s in all
  outside.avanzar(1000);
  EXPECT_EQ(handled, 2);
}

}  // namespace

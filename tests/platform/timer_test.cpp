#include "platform/timer.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"

namespace {

TEST(Timer, TicksWhileEnabledWithAnInterval) {
  support::MemoryPlatform outside;
  platform::Timer timer(outside, 1000, true);
  int ticks = 0;
  timer.on_tick = [&] { ++ticks; };
  outside.avanzar(999);
  EXPECT_EQ(ticks, 0);
  outside.avanzar(2001);
  EXPECT_EQ(ticks, 3);
  timer.set_enabled(false);
  outside.avanzar(5000);
  EXPECT_EQ(ticks, 3);
  timer.set_enabled(true);
  EXPECT_TRUE(timer.set_interval(0));
  outside.avanzar(100000);
  EXPECT_EQ(ticks, 3);
  EXPECT_TRUE(timer.set_interval(65535));
  EXPECT_FALSE(timer.set_interval(65536));
  outside.avanzar(65535);
  EXPECT_EQ(ticks, 4);
}

TEST(Timer, StartsItsIntervalAnewButNotWhenItIsEnabledAgain) {
  support::MemoryPlatform outside;
  platform::Timer timer(outside, 100, true);
  int ticks = 0;
  timer.on_tick = [&] { ++ticks; };
  outside.avanzar(60);
  EXPECT_TRUE(timer.set_interval(100));
  outside.avanzar(60);
  EXPECT_EQ(ticks, 0);
  timer.set_enabled(true);
  outside.avanzar(40);
  EXPECT_EQ(ticks, 1);
}

TEST(Timer, DropsTicksThatComeInsideItsOwnHandler) {
  support::MemoryPlatform outside;
  platform::Timer slow(outside, 1000, true), other(outside, 400, true);
  int ticks = 0, others = 0;
  slow.on_tick = [&] {
    ++ticks;
    outside.dialogs().Message("waits");
  };
  other.on_tick = [&] { ++others; };
  outside.boxes.while_open = [&] { outside.avanzar(10000); };
  outside.avanzar(1000);
  EXPECT_EQ(outside.boxes.messages.size(), 1u);
  EXPECT_EQ(others, 27);  // goes on meanwhile: 11 s in all
  outside.boxes.while_open = nullptr;
  outside.avanzar(1000);
  EXPECT_EQ(ticks, 2);
}

}  // namespace

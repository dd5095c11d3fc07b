#include "qt/ports/frame_clock.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "../wait.h"

namespace {

class Thing : public qt::Refreshable {
 public:
  bool ready = true;
  int refreshed = 0;
  std::function<void()> on_refresh;

  void Refresh() override {
    ++refreshed;
    if (on_refresh) on_refresh();
  }
  [[nodiscard]] bool Ready() const override { return ready; }
};

TEST(FrameClock, RefreshesAllThatIsWantedOnceAndTogether) {
  qt::FrameClock clock;
  Thing a, b;
  b.on_refresh = [&] { EXPECT_EQ(a.refreshed, 1); };
  for (int i = 0; i < 100; ++i) {
    clock.Want(a);
    clock.Want(b);
  }
  EXPECT_EQ(a.refreshed, 0);
  ASSERT_TRUE(support::WaitFor([&] { return b.refreshed > 0; }));
  support::Settle();
  EXPECT_EQ(a.refreshed, 1);
  EXPECT_EQ(b.refreshed, 1);
}

TEST(FrameClock, WhatARefreshWantsWaitsForTheNextFrame) {
  qt::FrameClock clock;
  Thing a, b;
  a.on_refresh = [&] {
    if (a.refreshed > 1) return;
    clock.Want(a);
    clock.Want(b);
  };
  clock.Want(a);
  ASSERT_TRUE(support::WaitFor([&] { return a.refreshed > 0; }));
  EXPECT_EQ(a.refreshed, 1);
  EXPECT_EQ(b.refreshed, 0);
  ASSERT_TRUE(support::WaitFor([&] { return b.refreshed > 0; }));
  EXPECT_EQ(a.refreshed, 2);
}

TEST(FrameClock, KeepsWhatIsNotReadyUntilItIsWoken) {
  qt::FrameClock clock;
  Thing hidden;
  hidden.ready = false;
  clock.Want(hidden);
  support::Settle();
  hidden.ready = true;
  clock.Want(hidden);
  support::Settle();
  EXPECT_EQ(hidden.refreshed, 0);
  clock.Wake();
  EXPECT_TRUE(support::WaitFor([&] { return hidden.refreshed == 1; }));
}

TEST(FrameClock, ForgetsWhatIsGone) {
  qt::FrameClock clock;
  auto asleep = std::make_unique<Thing>();
  asleep->ready = false;
  clock.Want(*asleep);
  support::Settle();
  auto gone = std::make_unique<Thing>();
  Thing killer, last;
  killer.on_refresh = [&] { gone.reset(); };
  clock.Want(killer);
  clock.Want(*gone);
  clock.Want(last);
  asleep.reset();
  clock.Wake();
  EXPECT_TRUE(support::WaitFor([&] { return last.refreshed == 1; }));
}

}  // namespace

#include "platform/controls.h"

#include <gtest/gtest.h>

namespace {

struct CountingWatcher : platform::Watcher {
  int touched = 0;
  void Touched(platform::Model&) override { ++touched; }
};

TEST(Model, TellsItsWatcherOnceUntilItIsCleaned) {
  CountingWatcher watcher;
  platform::Label label;
  label.set_watcher(&watcher);  // a new model is dirty
  EXPECT_EQ(watcher.touched, 1);
  label.set_caption("a");
  EXPECT_EQ(watcher.touched, 1);
  label.Clean();
  label.set_caption("a");
  EXPECT_EQ(watcher.touched, 1);
  label.set_caption("b");
  label.set_fore(5);
  EXPECT_EQ(watcher.touched, 2);
}

TEST(TextBox, RaisesChangeOnEveryRealChangeOnly) {
  platform::TextBox box;
  int changes = 0;
  box.on_change = [&] { ++changes; };
  box.set_max_length(3);
  box.set_text("ñandú");
  EXPECT_EQ(box.text(), "ñan");
  box.set_text("ñan");
  box.set_text("ñandu");  // the same once it is cut
  EXPECT_EQ(changes, 1);
  box.set_text("");
  EXPECT_EQ(changes, 2);
}

TEST(CheckBox, RaisesClickOnEveryRealChangeOnly) {
  platform::CheckBox box;
  int clicks = 0;
  box.on_click = [&] { ++clicks; };
  for (const int value : {0, 7, 1, 1, 0}) box.set_value(value);
  EXPECT_EQ(clicks, 2);
}

TEST(OptionButton, IsAloneInItsGroupAndRaisesClickWhenTurnedOn) {
  platform::OptionButton first, second(first), third(first), stranger;
  stranger.set_value(true);
  int clicks = 0;
  for (auto* option : {&first, &second, &third}) option->on_click = [&] { ++clicks; };
  for (auto* option : {&first, &third, &third, &second}) option->set_value(true);
  EXPECT_EQ(clicks, 3);
  EXPECT_TRUE(!first.value() && second.value() && !third.value() && stranger.value());
  second.set_value(false);
  EXPECT_TRUE(!first.value() && !second.value() && !third.value() && clicks == 3);
}

TEST(ListBox, ChoosesOnlyLinesThatAreThereAndNoneOnceCleared) {
  platform::ListBox list;
  int clicks = 0;
  list.on_click = [&] { ++clicks; };
  list.AddItem("a");
  list.AddItem("b");
  EXPECT_EQ(list.list_index(), -1);
  for (const int index : {1, 1, 2, -1}) list.Click(index);
  EXPECT_EQ(list.list_index(), 1);
  EXPECT_EQ(clicks, 2);
  list.Clear();
  EXPECT_EQ(list.list_index(), -1);
  EXPECT_TRUE(list.items().empty());
}

}  // namespace

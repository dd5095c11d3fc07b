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
  label.set_caption("a");
  EXPECT_EQ(watcher.touched, 1);
  label.Clean();
  label.set_caption("a");
  EXPECT_EQ(watcher.touched, 1);
  label.set_caption("b");
  label.set_fore(5);
  EXPECT_EQ(watcher.touched, 2);
}

TEST(Controls, RaiseTheirEventOnEveryRealChangeOnly) {
  platform::TextBox box;
  platform::CheckBox check;
  std::string events;
  box.on_change = [&] { events += box.text() + "|"; };
  check.on_click = [&] { events += std::to_string(check.value()); };
  box.set_max_length(3);
  for (const char* text : {"ñandú", "ñan", "ñandu", ""}) box.set_text(text);
  for (const int value : {0, 7, 1, 1, 0}) check.set_value(value);
  EXPECT_EQ(events, "ñan||10");
}

TEST(OptionButton, IsAloneInItsGroupAndRaisesClickWhenTurnedOn) {
  platform::OptionButton first, second(first), third(first), stranger;
  stranger.set_value(true);
  int clicks = 0;
  for (auto* option : {&first, &second, &third}) option->on_click = [&] { ++clicks; };
  for (auto* option : {&first, &third, &third, &second}) option->set_value(true);
  EXPECT_TRUE(!first.value() && second.value() && !third.value() && stranger.value());
  second.set_value(false);
  EXPECT_TRUE(!first.value() && !second.value() && !third.value());
  EXPECT_EQ(clicks, 3);
}

TEST(ListBox, ChoosesOnlyLinesThatAreThereAndNoneOnceCleared) {
  platform::ListBox list;
  int clicks = 0;
  list.on_click = [&] { ++clicks; };
  for (const char* item : {"a", "b"}) list.AddItem(item);
  for (const int index : {1, 1, 2, -1}) list.Click(index);
  EXPECT_TRUE(list.list_index() == 1 && clicks == 2);
  list.Clear();
  EXPECT_TRUE(list.list_index() == -1 && list.items().empty());
}

TEST(ComboBox, TellsAChoiceFromAChangeAndKeepsItsTextWithoutEntries) {
  platform::ComboBox box;
  std::string events;
  box.on_change = [&] { events += "c:" + box.text() + "|"; };
  box.on_click = [&] { events += "k:" + box.text() + "|"; };
  for (const char* item : {"a", "b ", "a"}) box.AddItem(item);
  for (const char* text : {"b", "b", "b "}) box.set_text(text);
  for (const int index : {1, 2, 2, 3, -1}) box.Click(index);
  box.Clear();
  box.Click(0);
  EXPECT_EQ(events, "c:b|c:b |k:b |k:a|k:a|");
  EXPECT_EQ(box.text(), "a");
}

}  // namespace

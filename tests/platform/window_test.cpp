#include "platform/window.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "support/memory_platform.h"

namespace {

class TestWindow : public platform::Window {
 public:
  TestWindow(platform::Platform& outside, std::string_view name) : Window(outside) {
    set_caption(name);
  }
  std::string log;
  bool may_unload = true;
  std::function<void()> when_unloading;

 protected:
  void OnLoad() override { log += "load "; }
  bool OnQueryUnload() override {
    log += "query ";
    return may_unload;
  }
  void OnUnload() override {
    log += "unload ";
    if (when_unloading) when_unloading();
  }
  void OnResize() override { log += "resize "; }
};

std::string Captions(const platform::WindowList& list) {
  std::string text;
  for (std::size_t i = 0; i < list.size(); ++i) text += list.at(i).caption() + " ";
  return text;
}

TEST(Window, LoadsOnceShowsHidesAndUnloadsUnlessItRefuses) {
  support::MemoryPlatform outside;
  TestWindow window(outside, "A");
  platform::Button button;
  window.Hide();
  window.SetFocus(button);
  EXPECT_EQ(outside.desktop().focus, nullptr);
  window.Load();
  EXPECT_FALSE(window.visible());
  window.Show();
  window.Show();
  window.SetFocus(button);
  EXPECT_EQ(outside.desktop().focus, &button);
  window.Hide();
  window.Show();
  window.may_unload = false;
  EXPECT_FALSE(window.Unload());
  EXPECT_TRUE(window.visible());
  window.may_unload = true;
  window.when_unloading = [&] { EXPECT_FALSE(window.Unload()); };
  EXPECT_TRUE(window.Unload());
  EXPECT_TRUE(window.Unload());
  EXPECT_EQ(window.log, "load query query unload ");
  EXPECT_EQ(outside.desktop().log,
            (std::vector<std::string>{"shown A", "shown A", "hidden A", "shown A", "closed A"}));
  EXPECT_EQ(outside.windows.size(), 0u);
  EXPECT_FALSE(window.visible());
}

TEST(Window, ResizesOnlyWhenItsInnerSizeChanges) {
  support::MemoryPlatform outside;
  TestWindow window(outside, "A");
  window.Clean();
  window.Placed({0, 0, 5000, 4000}, platform::Window::State::normal, 4900, 3600);
  window.Placed({90, 0, 5000, 4000}, platform::Window::State::normal, 4900, 3600);
  EXPECT_EQ(window.log, "resize ");
  EXPECT_EQ(window.rect().left, 90);
  EXPECT_FALSE(window.dirty());
}

TEST(WindowList, KeepsLoadOrderAndLosesDestroyedWindows) {
  support::MemoryPlatform outside;
  TestWindow a(outside, "A"), b(outside, "B");
  auto c = std::make_unique<TestWindow>(outside, "C");
  b.set_tag("TEF");
  c->set_tag("TEF");
  for (TestWindow* window : {&a, c.get(), &b}) window->Load();
  EXPECT_EQ(Captions(outside.windows), "A C B ");
  EXPECT_EQ(outside.windows.WithTag("TEF"), c.get());
  c.reset();
  EXPECT_EQ(Captions(outside.windows), "A B ");
  EXPECT_EQ(outside.windows.WithTag("TEF"), &b);
  EXPECT_EQ(outside.windows.WithTag("SAN"), nullptr);
  EXPECT_EQ(outside.desktop().log, std::vector<std::string>{"closed C"});
}

TEST(WindowList, VisitSurvivesWindowsThatComeAndGo) {
  support::MemoryPlatform outside;
  TestWindow a(outside, "A"), d(outside, "D"), e(outside, "E");
  auto b = std::make_unique<TestWindow>(outside, "B");
  auto c = std::make_unique<TestWindow>(outside, "C");
  for (TestWindow* window : {&a, b.get(), c.get(), &d}) window->Load();
  std::string visited;
  outside.windows.ForEach([&](platform::Window& window) {
    visited += window.caption() + " ";
    if (&window == &a) {  // itself, the next one, and a new one
      EXPECT_TRUE(a.Unload());
      b.reset();
      e.Load();
    }
    if (&window == c.get()) c.reset();
  });
  EXPECT_EQ(visited, "A C D E ");
}

TEST(WindowList, VisitEndsThoughAWindowIsLoadedAgainEachTime) {
  support::MemoryPlatform outside;
  TestWindow a(outside, "A");
  a.Load();
  int visits = 0;
  outside.windows.ForEach([&](platform::Window& window) {
    ++visits;
    EXPECT_TRUE(window.Unload());
    window.Load();
  });
  EXPECT_GT(visits, 1);
  EXPECT_EQ(outside.windows.size(), 1u);
}

}  // namespace

#include "platform/window.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

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
  std::function<void()> when_unloading = [] {};

 protected:
  void OnLoad() override { log += "load "; }
  bool OnQueryUnload() override {
    log += "query ";
    return may_unload;
  }
  void OnUnload() override {
    log += "unload ";
    when_unloading();
  }
  void OnResize() override { log += "resize "; }
};

class Windows : public testing::Test {
 protected:
  std::unique_ptr<TestWindow> Make(std::string_view name) {
    auto window = std::make_unique<TestWindow>(outside, name);
    window->Load();
    return window;
  }
  std::string Captions() {
    std::string text;
    for (std::size_t i = 0; i < outside.windows.size(); ++i) {
      text += outside.windows.at(i).caption() + " ";
    }
    return text;
  }

  support::MemoryPlatform outside;
};

TEST_F(Windows, LoadOnceShowHideAndUnloadUnlessTheyRefuse) {
  TestWindow window(outside, "A");
  platform::Button button;
  window.Hide();
  window.SetFocus(button);
  EXPECT_EQ(outside.desktop().focus, nullptr);
  window.Load();
  EXPECT_FALSE(window.visible());
  for (int twice = 0; twice < 2; ++twice) window.Show();
  window.SetFocus(button);
  EXPECT_EQ(outside.desktop().focus, &button);
  window.Hide();
  window.may_unload = false;
  EXPECT_FALSE(window.Unload());
  window.may_unload = true;
  window.when_unloading = [&] { EXPECT_FALSE(window.Unload()); };
  EXPECT_TRUE(window.Unload() && window.Unload());
  EXPECT_EQ(window.log, "load query query unload ");
  EXPECT_EQ(outside.desktop().log,
            (std::vector<std::string>{"shown A", "shown A", "hidden A", "closed A"}));
  EXPECT_TRUE(Captions().empty() && !window.visible());
}

TEST_F(Windows, ResizeOnlyWhenTheirInnerSizeChanges) {
  TestWindow window(outside, "A");
  window.Clean();
  for (const int left : {0, 90}) {
    window.Placed({left, 0, 5000, 4000}, platform::Window::State::normal, 4900, 3600);
  }
  EXPECT_EQ(window.log, "resize ");
  EXPECT_EQ(window.rect().left, 90);
  EXPECT_FALSE(window.dirty());
}

TEST_F(Windows, StandInTheirListInLoadOrderUntilTheyAreDestroyed) {
  const auto a = Make("A");
  auto c = Make("C");
  const auto b = Make("B");
  for (TestWindow* window : {b.get(), c.get()}) window->set_tag("TEF");
  EXPECT_EQ(Captions(), "A C B ");
  EXPECT_EQ(outside.windows.WithTag("TEF"), c.get());
  c.reset();
  EXPECT_EQ(Captions(), "A B ");
  EXPECT_EQ(outside.windows.WithTag("TEF"), b.get());
  EXPECT_EQ(outside.windows.WithTag("SAN"), nullptr);
  EXPECT_EQ(outside.desktop().log, std::vector<std::string>{"closed C"});
}

TEST_F(Windows, MayComeAndGoWhileTheyAreVisited) {
  const auto a = Make("A");
  auto b = Make("B"), c = Make("C");
  const auto d = Make("D");
  std::unique_ptr<TestWindow> e;
  std::string visited;
  outside.windows.ForEach([&](platform::Window& window) {
    visited += window.caption() + " ";
    if (&window == a.get()) {  // itself, the next one, and a new one
      EXPECT_TRUE(a->Unload());
      b.reset();
      e = Make("E");
    }
    if (&window == c.get()) c.reset();
  });
  EXPECT_EQ(visited, "A C D E ");
}

TEST_F(Windows, AreVisitedToAnEndThoughOneIsLoadedAgainEachTime) {
  const auto a = Make("A");
  int visits = 0;
  outside.windows.ForEach([&](platform::Window& window) {
    ++visits;
    EXPECT_TRUE(window.Unload());
    window.Load();
  });
  EXPECT_GT(visits, 1);
  EXPECT_EQ(Captions(), "A ");
}

}  // namespace

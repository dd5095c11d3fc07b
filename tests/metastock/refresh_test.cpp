#include "metastock/refresh.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"

namespace {

TEST(Refresh, FindsThePackageShowsItsBoxAndTypesWhenDueAndAllowed) {
  support::FakeOtherWindows windows;
  platform::CheckBox check;
  check.set_visible(false);
  check.set_value(1);
  bool due = true;
  metastock::Refresh refresh(windows, check, due);
  const std::string found = "find MetaStockMainWnd;send 7 1042;",
                    keys = "keys %{RIGHT};keys %{LEFT};";
  struct Step {
    const char* what;
    platform::OtherWindows::Handle window;
    int checked;
    bool period_passed, none, visible, still_due;
    std::string log;
  };
  const Step steps[] = {
      {"not running", 0, 1, true, true, false, true, "find MetaStockMainWnd;"},
      {"not allowed", 7, 0, true, false, true, true, found},
      {"allowed", 7, 1, false, false, true, false, found + keys},
      {"not due", 7, 1, false, false, true, false, found},
      {"due", 7, 1, true, false, true, false, found + keys},
      {"gone", 0, 1, true, true, true, true, "find MetaStockMainWnd;"},
  };
  refresh.Avisar();
  EXPECT_TRUE(windows.log.empty()) << "never found";
  for (const Step& step : steps) {
    windows.log.clear();
    windows.found = step.window;
    check.set_value(step.checked);
    if (step.period_passed) due = true;
    EXPECT_EQ(refresh.RefreshMetaStock(), step.none) << step.what;
    EXPECT_EQ(check.visible(), step.visible) << step.what;
    EXPECT_EQ(due, step.still_due) << step.what;
    std::string log;
    for (const std::string& line : windows.log) log += line + ";";
    EXPECT_EQ(log, step.log) << step.what;
  }
  windows.log.clear();
  refresh.Avisar();
  EXPECT_EQ(windows.log, std::vector<std::string>{"send 7 49440"}) << "the one found last";
}

}  // namespace

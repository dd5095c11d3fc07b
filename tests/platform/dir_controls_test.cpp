#include "platform/dir_controls.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/temp_dir.h"

namespace {

TEST(DirControls, ABoxTakesOnlyDirectoriesThatAreThereAndTellsOfRealChanges) {
  const support::TempDir temp;
  temp.Write("con blanco/f", "x");
  ASSERT_EQ(symlink("con blanco", temp.Path("enlace").c_str()), 0);
  const std::string& top = temp.path();
  platform::DirBox box;
  int changes = 0;
  box.on_change = [&] { ++changes; };
  struct Case {
    std::string path;
    bool taken, changed;
    std::string shown;
  };
  const Case cases[] = {
      {"", false, false, ""},
      {top, true, true, top},
      {top + "//", true, false, top},
      {top + "//con blanco/", true, true, top + "/con blanco"},
      {top + "/con blanco/f", false, false, top + "/con blanco"},
      {top + "/nada", false, false, top + "/con blanco"},
      {top + std::string("\0x", 2), false, false, top + "/con blanco"},
      {".", false, false, top + "/con blanco"},
      {top + "/enlace", true, true, top + "/enlace"},
      {"//", true, true, "/"},
  };
  for (const auto& [path, taken, changed, shown] : cases) {
    changes = 0;
    EXPECT_EQ(box.set_path(path), taken) << path;
    EXPECT_EQ(changes, changed ? 1 : 0) << path;
    EXPECT_EQ(box.path(), shown) << path;
  }
}

TEST(DirControls, ThereIsOneDrive) {
  platform::DriveBox box;
  EXPECT_FALSE(box.set_drive("C:"));
  EXPECT_TRUE(box.set_drive("/"));
  EXPECT_EQ(box.drive(), "/");
}

}  // namespace

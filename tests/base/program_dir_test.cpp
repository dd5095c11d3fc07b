#include "base/program_dir.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace {

namespace fs = std::filesystem;

TEST(ProgramDir, FindsNamesWhateverTheirCase) {
  const support::TempDir temp;
  const base::ProgramDir dir(temp.path());
  EXPECT_EQ(dir.Path("MC.POS"), temp.Path("MC.POS"));
  temp.Write("mc.pos", "");
  temp.Write("Mc.pos", "");
  EXPECT_EQ(dir.Path("MC.POS"), temp.Path("Mc.pos"));
  fs::create_symlink("nowhere", temp.Path("MC.POS"));
  EXPECT_EQ(dir.Path("MC.POS"), temp.Path("MC.POS"));
  EXPECT_EQ(base::ProgramDir(temp.Path("none")).Path("x"), temp.Path("none/x"));
}

TEST(ProgramDir, MakesADirectoryUnlessSomethingElseHasItsName) {
  const support::TempDir temp;
  const base::ProgramDir dir(temp.path());
  EXPECT_TRUE(dir.MakeDirectory("Ticks"));
  EXPECT_TRUE(dir.MakeDirectory("TICKS"));
  EXPECT_FALSE(temp.Has("TICKS"));
  temp.Write("file", "");
  EXPECT_FALSE(dir.MakeDirectory("File"));
}

TEST(ProgramDir, EmptiesOneDirectoryAndNothingBeyond) {
  const support::TempDir temp;
  const base::ProgramDir dir(temp.path());
  temp.Write("other/kept", "");
  temp.Write("ticks/a.TCK", "");
  temp.Write("ticks/sub/kept", "");
  fs::create_symlink("../other", temp.Path("ticks/link"));
  fs::create_symlink("other", temp.Path("linked"));
  dir.EmptyDirectory("Ticks");
  dir.EmptyDirectory("linked");
  dir.EmptyDirectory("none");
  EXPECT_FALSE(temp.Has("ticks/a.TCK"));
  EXPECT_FALSE(fs::is_symlink(temp.Path("ticks/link")));
  EXPECT_TRUE(temp.Has("ticks/sub/kept") && temp.Has("other/kept") && temp.Has("linked"));
}

}  // namespace

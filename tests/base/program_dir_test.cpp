#include "base/program_dir.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace {

namespace fs = std::filesystem;

class ProgramDir : public testing::Test {
 protected:
  const support::TempDir temp;
  const base::ProgramDir dir{temp.path()};
};

TEST_F(ProgramDir, FindsNamesWhateverTheirCase) {
  EXPECT_EQ(dir.Path("MC.POS"), temp.Path("MC.POS"));
  temp.Write("mc.pos", "");
  temp.Write("Mc.pos", "");
  EXPECT_EQ(dir.Path("MC.POS"), temp.Path("Mc.pos"));
  fs::create_symlink("nowhere", temp.Path("MC.POS"));
  EXPECT_EQ(dir.Path("MC.POS"), temp.Path("MC.POS"));
}

TEST_F(ProgramDir, MakesADirectoryUnlessSomethingElseHasItsName) {
  temp.Write("file", "");
  EXPECT_TRUE(dir.MakeDirectory("Ticks") && dir.MakeDirectory("TICKS"));
  EXPECT_FALSE(temp.Has("TICKS") || dir.MakeDirectory("File"));
}

TEST_F(ProgramDir, EmptiesOneDirectoryAndNothingBeyond) {
  for (const char* const file : {"other/kept", "ticks/a.TCK", "ticks/sub/kept"})
    temp.Write(file, "");
  fs::create_symlink("../other", temp.Path("ticks/link"));
  fs::create_symlink("other", temp.Path("linked"));
  for (const char* const name : {"Ticks", "linked", "none"}) dir.EmptyDirectory(name);
  EXPECT_FALSE(temp.Has("ticks/a.TCK") || fs::is_symlink(temp.Path("ticks/link")));
  EXPECT_TRUE(temp.Has("ticks/sub/kept") && temp.Has("other/kept") && temp.Has("linked"));
}

}  // namespace

#include "base/record_file.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <sys/stat.h>

#include "support/temp_dir.h"

namespace {

using namespace base;  // NOLINT
namespace fs = std::filesystem;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();

class RecordFiles : public testing::Test {
 protected:
  [[nodiscard]] unsigned Permissions(const char* name) const {
    return static_cast<unsigned>(fs::status(dir.Path(name)).permissions());
  }

  const support::TempDir dir;
  std::string text = "old";
};

TEST_F(RecordFiles, ReadOnlyWholeRecords) {
  dir.Write("f", "abcdefgh");
  const RecordFile file(dir.Path("f"), 3);
  for (const std::int64_t n : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{3}, kMost}) {
    EXPECT_FALSE(file.Read(n, text)) << n;
  }
  EXPECT_EQ(text, "old");
  EXPECT_TRUE(file.Read(2, text));
  EXPECT_EQ(text, "def");
  std::string room(8, '.');
  EXPECT_TRUE(file.ReadMany(1, room) == 2 && room == "abcdef..");
  EXPECT_TRUE(file.ReadMany(2, room) == 1 && file.ReadMany(3, room) == 0);
  EXPECT_TRUE(file.ReadMany(0, room) == 0 && file.ReadMany(kMost, room) == 0);
}

TEST_F(RecordFiles, AreCreatedAndTheirGapsFilledWithZeros) {
  {
    RecordFile file(dir.Path("f"), 2);
    EXPECT_TRUE(file.length() == 0 && file.Write(3, "ab"));
    EXPECT_FALSE(file.Write(0, "xx") || file.Write(kMost / 2, "xx"));
    EXPECT_EQ(file.length(), 6);
  }
  RecordFile(dir.Path("f"), 2).Write(1, "cd");
  EXPECT_EQ(dir.Read("f"), std::string("cd\0\0ab", 6));
}

TEST_F(RecordFiles, AreNothingButRegularFiles) {
  ASSERT_EQ(mkfifo(dir.Path("fifo").c_str(), 0600), 0);
  const std::string device = "/dev/zero";  // only read: a fault must not cost the machine
  for (const auto& path : {dir.path(), dir.Path("fifo"), dir.Path("none/f"), device}) {
    RecordFile file(path, 1);
    EXPECT_FALSE(file.is_open() || file.Read(1, text) || file.Write(1, "x")) << path;
    EXPECT_FALSE(ReadWholeFile(path, 100, text) || ReadFileStart(path, 100, text)) << path;
    EXPECT_FALSE(path != device && ReplaceFile(path, "x")) << path;
  }
}

TEST_F(RecordFiles, WithASecretAreTheirOwnersOnly) {
  dir.Write("old", "x");
  ASSERT_TRUE(ReplaceFile(dir.Path("whole"), "x", true));
  for (const char* const name : {"old", "new", "whole"}) {
    EXPECT_TRUE(RecordFile(dir.Path(name), 1, name != std::string("whole")).is_open());
    EXPECT_EQ(Permissions(name), 0600u) << name;
  }
}

TEST_F(RecordFiles, AreReplacedWithLinkAndPermissionsAndLeaveNoOtherFile) {
  dir.Write("real/f", "old content");
  fs::permissions(dir.Path("real/f"), fs::perms(0660));  // more than the umask leaves
  fs::create_symlink("real/f", dir.Path("link"));
  ASSERT_TRUE(ReplaceFile(dir.Path("link"), "new"));
  EXPECT_TRUE(fs::is_symlink(dir.Path("link")));
  EXPECT_EQ(dir.Read("real/f"), "new");
  EXPECT_EQ(Permissions("real/f"), 0660u);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path("real")), {}), 1);
}

TEST_F(RecordFiles, AreReadWholeUpToTheLimit) {
  dir.Write("f", "12345");
  EXPECT_FALSE(ReadWholeFile(dir.Path("f"), 4, text) || ReadWholeFile(dir.Path("none"), 4, text));
  EXPECT_EQ(text, "old");
  EXPECT_FALSE(dir.Has("none"));
  EXPECT_TRUE(ReadWholeFile(dir.Path("f"), 5, text) && text == "12345");
  EXPECT_TRUE(ReadFileStart(dir.Path("f"), 3, text) && text == "123");
}

}  // namespace

#include "base/record_file.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

#include "support/temp_dir.h"

namespace {

using namespace base;  // NOLINT
namespace fs = std::filesystem;

unsigned Permissions(const std::string& path) {
  return static_cast<unsigned>(fs::status(path).permissions());
}

TEST(RecordFile, ReadsOnlyWholeRecords) {
  const support::TempDir dir;
  dir.Write("f", "abcdefgh");
  const RecordFile file(dir.Path("f"), 3);
  std::string record = "old";
  for (const std::int64_t n : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{3}, std::int64_t{4},
                               std::numeric_limits<std::int64_t>::max()}) {
    EXPECT_FALSE(file.Read(n, record)) << n;
  }
  EXPECT_EQ(record, "old");
  EXPECT_TRUE(file.Read(2, record));
  EXPECT_EQ(record, "def");
}

TEST(RecordFile, CreatesTheFileAndFillsGapsWithZeros) {
  const support::TempDir dir;
  {
    RecordFile file(dir.Path("f"), 2);
    EXPECT_EQ(file.length(), 0);
    EXPECT_TRUE(file.Write(3, "ab"));
    EXPECT_FALSE(file.Write(0, "xx"));
    EXPECT_FALSE(file.Write(std::numeric_limits<std::int64_t>::max() / 2, "xx"));
    EXPECT_EQ(file.length(), 6);
  }
  RecordFile(dir.Path("f"), 2).Write(1, "cd");
  EXPECT_EQ(dir.Read("f"), std::string("cd\0\0ab", 6));
}

TEST(RecordFile, OpensNothingButRegularFiles) {
  const support::TempDir dir;
  ASSERT_EQ(mkfifo(dir.Path("fifo").c_str(), 0600), 0);
  for (const std::string& path :
       {dir.path(), dir.Path("fifo"), dir.Path("none/f"), std::string("/dev/zero")}) {
    RecordFile file(path, 1);
    std::string text;
    EXPECT_FALSE(file.is_open() || file.Read(1, text) || file.Write(1, "x")) << path;
    EXPECT_FALSE(ReadWholeFile(path, 100, text) || ReadFileStart(path, 100, text)) << path;
    EXPECT_FALSE(ReplaceFile(path, "x")) << path;
  }
}

TEST(RecordFile, KeepsASecretFileToItsOwner) {
  const support::TempDir dir;
  dir.Write("old", "x");
  for (const char* const name : {"old", "new"}) {
    ASSERT_TRUE(RecordFile(dir.Path(name), 1, true).is_open());
    EXPECT_EQ(Permissions(dir.Path(name)), 0600u);
  }
  ASSERT_TRUE(ReplaceFile(dir.Path("whole"), "x", true));
  EXPECT_EQ(Permissions(dir.Path("whole")), 0600u);
}

TEST(ReplaceFile, KeepsLinkAndPermissionsAndLeavesNoOtherFile) {
  const support::TempDir dir;
  dir.Write("real/f", "old content");
  fs::permissions(dir.Path("real/f"), fs::perms(0640));
  fs::create_symlink("real/f", dir.Path("link"));
  ASSERT_TRUE(ReplaceFile(dir.Path("link"), "new"));
  EXPECT_TRUE(fs::is_symlink(dir.Path("link")));
  EXPECT_EQ(dir.Read("real/f"), "new");
  EXPECT_EQ(Permissions(dir.Path("real/f")), 0640u);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path("real")), {}), 1);
}

TEST(ReadWholeFile, TakesAtMostTheLimit) {
  const support::TempDir dir;
  dir.Write("f", "12345");
  std::string content = "old";
  EXPECT_FALSE(ReadWholeFile(dir.Path("f"), 4, content));
  EXPECT_FALSE(ReadWholeFile(dir.Path("none"), 4, content));
  EXPECT_FALSE(dir.Has("none"));
  EXPECT_EQ(content, "old");
  EXPECT_TRUE(ReadWholeFile(dir.Path("f"), 5, content));
  EXPECT_EQ(content, "12345");
  EXPECT_TRUE(ReadFileStart(dir.Path("f"), 3, content));
  EXPECT_EQ(content, "123");
  EXPECT_FALSE(ReadFileStart(dir.Path("none"), 3, content));
}

}  // namespace

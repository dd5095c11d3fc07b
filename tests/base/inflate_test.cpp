#include "base/inflate.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using base::Compress;
using base::Expand;

std::string Noise(std::size_t size) {
  std::mt19937 random(5);
  std::string bytes(size, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  return bytes;
}

TEST(Expand, GivesBackWhatWasCompressedWithinTheLimit) {
  for (const auto& text : {std::string(), Noise(40'000), std::string(3'000'000, 'a')}) {
    std::string out = "old";
    ASSERT_TRUE(Expand(Compress(text) + "tail", out, text.size()));
    EXPECT_EQ(out, text);
    EXPECT_TRUE(text.empty() || !Expand(Compress(text), out, text.size() - 1));
  }
}

TEST(Expand, LeavesTheTargetOfABrokenStream) {
  const std::string text = Noise(300) + std::string(5000, 'x');
  const std::string whole = Compress(text);
  std::string out = "old";
  for (std::size_t size = 0; size < whole.size(); ++size) {
    ASSERT_FALSE(Expand(whole.substr(0, size), out, 1 << 20)) << size;
  }
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string broken = whole;
    broken[at] = static_cast<char>(broken[at] ^ 0x10);
    // The fill bits before the checksum mean nothing.
    const bool done = Expand(broken, out, 1 << 20);
    ASSERT_EQ(out, done ? text : "old") << at;
    out = "old";
  }
}

}  // namespace

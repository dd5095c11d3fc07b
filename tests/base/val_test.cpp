#include "base/val.h"

#include <bit>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "base/masks.h"

namespace {

using namespace base;  // NOLINT

TEST(Val, ReadsTheLongestNumericPrefix) {
  const std::pair<double, std::vector<std::string>> cases[] = {
      {0, {"", ".", "-", "abc", "E5", "&H10", "--5", "1E-999", "0E999", "inf", "nan"}},
      {1, {"1,664.00", "1E", "1E+x", "1\r2", "1\xA0", std::string("1\0002", 3), "01."}},
      {12.5, {" 1 2 . 5 ", "12.5]", "12.5.7", "1.25E1", "125 D - 1", "+.125e+2"}},
      {-7, {"\t-\n7", "-7,5", "-700E-2"}}};
  for (const auto& [value, texts] : cases) {
    for (const std::string& text : texts) EXPECT_EQ(Val(text), value) << text;
  }
}

TEST(Val, KeepsToTheRangeOfADouble) {
  for (const auto& text : {std::string("1E999"), std::string("-1.8E308"), std::string(400, '9'),
                           std::string("1E99999999999999999999")}) {
    EXPECT_EQ(Val(text), std::nullopt) << text;
  }
  EXPECT_EQ(Val("." + std::string(400, '0') + "1E401"), 1.0);
  EXPECT_EQ(Val("1" + std::string(30000, '0') + "E-30000"), 1.0);
  // Just above the middle of two doubles, as only the last of many digits tells.
  EXPECT_EQ(Val("9007199254740993" + std::string(800, '0') + "E-800"), 9007199254740992.0);
  EXPECT_EQ(Val("9007199254740993" + std::string(800, '0') + "1E-801"), 9007199254740994.0);
}

TEST(Val, ReadsBackEveryNumberText) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 100'000; ++i) {
    const auto bits = random();
    const auto value = std::bit_cast<double>(bits);
    const auto single = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    if (!std::isfinite(value) || !std::isfinite(single)) continue;
    ASSERT_EQ(Val(NumberText(value)), value);
    ASSERT_EQ(static_cast<float>(Val(NumberText(single)).value()), single);
  }
}

TEST(ToInteger, RoundsHalvesToEvenAndRefusesWhatDoesNotFit) {
  EXPECT_EQ(ValInteger<int>("2.5"), 2);
  EXPECT_EQ(ToInteger<std::int16_t>(32767.49), 32767);
  EXPECT_EQ(ToInteger<std::int16_t>(32767.5), std::nullopt);
  EXPECT_EQ(ToInteger<std::int16_t>(-32768.5), -32768);
  EXPECT_EQ(ToInteger<std::int64_t>(0x1p63), std::nullopt);
  EXPECT_EQ(ToInteger<std::uint8_t>(-0.6), std::nullopt);
  EXPECT_EQ(ToInteger<std::int32_t>(std::nan("")), std::nullopt);
  EXPECT_EQ(CheckedIncrement<std::int16_t>(32767), 32767);
}

}  // namespace

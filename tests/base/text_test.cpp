#include "base/text.h"

#include <gtest/gtest.h>

#include "base/ansi.h"
#include "base/bytes.h"
#include "base/fixed_text.h"
#include "base/palette.h"

namespace {

using namespace base;  // NOLINT

TEST(Text, PositionsCountFromOneAndNeverLeaveTheText) {
  EXPECT_EQ(Trim("  a b\t "), "a b\t");
  EXPECT_EQ(Mid("abc", 2, 9), "bc");
  EXPECT_TRUE(Mid("abc", 0).empty() && Mid("abc", 4).empty());
  EXPECT_EQ(Find("a]b]", "]", 3), 4u);
  EXPECT_EQ(Find("a]b]", "]", 0), 2u);
  EXPECT_EQ(Find("a]b]", "]", 99), 0u);
}

TEST(Text, IsCutByCharactersNotBytes) {
  EXPECT_EQ(CutUtf8("a€ñb", 2), "a€");
  EXPECT_EQ(CutUtf8("a€ñb", 4), "a€ñb");
  EXPECT_EQ(CutUtf8("ñ", 0), "");
  EXPECT_EQ(OneLine("a\r\n\tñ"), "a   ñ");
  EXPECT_EQ(FixedText<4>::FromUtf8("ñandú").trimmed_utf8(), "ñand");
  EXPECT_EQ(FixedText<4>("\xF1").utf8(), "ñ   ");
}

TEST(Ansi, EveryByteComesBackAndHasItsCapital) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  const std::string utf8 = AnsiToUtf8(bytes);
  EXPECT_EQ(CountUtf8(utf8), 256u);
  EXPECT_EQ(Utf8ToAnsi(utf8), bytes);
  EXPECT_EQ(UpperUtf8(utf8), AnsiToUtf8(UpperAnsi(bytes)));
  EXPECT_EQ(AnsiToUtf8("\x80\x81\x9F\xF1"), "€\u0081Ÿñ");
  EXPECT_EQ(UpperUtf8("aZ[z{ñàþ÷ßÿš€ \xC3!"), "AZ[Z{ÑÀÞ÷ßÿš€ \xC3!");
}

TEST(Ansi, WhatHasNoByteBecomesAQuestionMark) {
  const std::pair<const char*, const char*> cases[] = {
      {"Σ€😀\u0080", "?\x80??"},    {"a\xFFz\xC3", "a?z?"},
      {"\xE2\x82ñ", "??\xF1"},     {"\xC0\x80", "??"},  // overlong
      {"\xED\xA0\x80", "???"},                          // half of a pair
      {"\xF4\x90\x80\x80", "????"}};                    // beyond the last character
  for (const auto& [utf8, bytes] : cases) EXPECT_EQ(Utf8ToAnsi(utf8), bytes) << utf8;
}

TEST(Bytes, AFieldNeedsAllItsBytes) {
  std::string record = "x";  // so that no field is aligned
  AppendField(record, 1.5F);
  AppendField(record, std::int16_t{-2});
  float number = 0;
  std::int16_t integer = 0;
  EXPECT_TRUE(ReadField(record, 1, number) && ReadField(record, 5, integer));
  EXPECT_FALSE(ReadField(record, 4, number) || ReadField(record, std::string::npos, integer));
  EXPECT_TRUE(number == 1.5F && integer == -2);
  EXPECT_TRUE(TextField("abc", 2, 5) == "c" && TextField("abc", 4, 5).empty());
}

TEST(Palette, AColourBeyondFifteenIsBlueGreenRed) {
  EXPECT_EQ(RgbOf(14), 0xFFFF00u);
  EXPECT_EQ(RgbOf(-0x6DCBAA), 0x563492u);
}

}  // namespace

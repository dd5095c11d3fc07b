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
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Mid("abc", 2, 9), "bc");
  EXPECT_EQ(Mid("abc", 0), "");
  EXPECT_EQ(Mid("abc", 4), "");
  EXPECT_EQ(Find("a]b]", "]", 3), 4u);
  EXPECT_EQ(Find("a]b]", "]", 0), 2u);
  EXPECT_EQ(Find("a]b]", "]", 99), 0u);
}

TEST(Text, CutsByCharactersNotBytes) {
  EXPECT_EQ(CutUtf8("a€ñb", 2), "a€");
  EXPECT_EQ(CutUtf8("a€ñb", 4), "a€ñb");
  EXPECT_EQ(CutUtf8("ñ", 0), "");
  EXPECT_EQ(CountUtf8("a€ñb"), 4u);
  EXPECT_EQ(OneLine("a\r\n\tñ"), "a   ñ");
}

TEST(Ansi, EveryByteComesBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  const std::string utf8 = AnsiToUtf8(bytes);
  EXPECT_EQ(CountUtf8(utf8), 256u);
  EXPECT_EQ(Utf8ToAnsi(utf8), bytes);
  EXPECT_EQ(AnsiToUtf8("\x80\x81\x9F\xF1"), "€\u0081Ÿñ");
}

TEST(Ansi, WhatHasNoByteBecomesAQuestionMark) {
  EXPECT_EQ(Utf8ToAnsi("Σ€😀\u0080"), "?\x80??");
  EXPECT_EQ(Utf8ToAnsi("a\xFFz\xC3"), "a?z?");
  EXPECT_EQ(Utf8ToAnsi("\xE2\x82ñ"), "??\xF1");
  EXPECT_EQ(Utf8ToAnsi("\xC0\x80"), "??") << "overlong";
  EXPECT_EQ(Utf8ToAnsi("\xED\xA0\x80"), "???") << "half of a pair";
  EXPECT_EQ(Utf8ToAnsi("\xF4\x90\x80\x80"), "????") << "beyond the last character";
}

TEST(Ansi, CapitalsAreThoseOfTheCodePage) {
  EXPECT_EQ(UpperUtf8("aZ[z{ñàþ÷ßÿš€ \xC3!"), "AZ[Z{ÑÀÞ÷ßÿš€ \xC3!");
  for (int i = 0; i < 256; ++i) {
    const std::string byte(1, static_cast<char>(i));
    EXPECT_EQ(UpperUtf8(AnsiToUtf8(byte)), AnsiToUtf8(UpperAnsi(byte))) << i;
  }
}

TEST(FixedText, PadsAndCutsByCharacters) {
  EXPECT_EQ(FixedText<4>().bytes(), "    ");
  EXPECT_EQ(FixedText<4>::FromUtf8("ñandú").trimmed_utf8(), "ñand");
  FixedText<4> text("€uro+");
  text.assign("\xF1");
  EXPECT_EQ(text.bytes(), "\xF1   ");
  EXPECT_EQ(text.utf8(), "ñ   ");
  EXPECT_EQ(FixedText<2>(std::string_view("\0x", 2)).bytes(), std::string_view("\0x", 2));
}

TEST(Bytes, AFieldNeedsAllItsBytes) {
  std::string record = "x";  // so that no field is aligned
  AppendField(record, 1.5f);
  AppendField(record, std::int16_t{-2});
  float number = 0;
  std::int16_t integer = 0;
  EXPECT_TRUE(ReadField(record, 1, number) && ReadField(record, 5, integer));
  EXPECT_EQ(number, 1.5f);
  EXPECT_EQ(integer, -2);
  EXPECT_FALSE(ReadField(record, 4, number));
  EXPECT_FALSE(ReadField(record, std::string::npos, integer));
  EXPECT_EQ(number, 1.5f);
  EXPECT_EQ(TextField("abc", 2, 5), "c");
  EXPECT_EQ(TextField("abc", 4, 5), "");
}

TEST(Palette, AColourBeyondFifteenIsBlueGreenRed) {
  EXPECT_EQ(RgbOf(14), 0xFFFF00u);
  EXPECT_EQ(RgbOf(16), 0x100000u);
  EXPECT_EQ(RgbOf(-0x6DCBAA), 0x563492u);
}

}  // namespace

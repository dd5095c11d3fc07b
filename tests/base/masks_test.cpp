#include "base/masks.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

using namespace base;  // NOLINT

std::string Texts(const Mask& mask, std::initializer_list<double> values) {
  std::string texts;
  for (const double value : values) texts += '[' + mask.Format(value) + ']';
  return texts;
}

TEST(Mask, FormatsEveryPatternOfTheProgram) {
  EXPECT_EQ(Texts(masks::kMoney, {1234567.891, -234567.895, 1e9}),
            "[1,234,567.89][-234,567.90][1,000,000,000.00]");
  EXPECT_EQ(Texts(masks::kPrice, {0, 999.995, 100}), "[0.00][1,000.00][100.00]");
  EXPECT_EQ(Texts(masks::kRate, {166.386, 1e4}), "[166.386][10,000.000]");
  EXPECT_EQ(Texts(masks::kOpenPrice, {0.5, -0.5, 0, 1234.5}), "[.50][-.50][.00][1,234.50]");
  EXPECT_EQ(Texts(masks::kOpenRate, {1234.0005, 0.0004}), "[1,234.001][.000]");
  EXPECT_EQ(Texts(masks::kPercent, {12345.678, -0.004, -0.005, -0.0}),
            "[12345.68][0.00][-0.01][0.00]");
  EXPECT_EQ(Texts(masks::kShortPercent, {-99.999, 5}), "[-100.00][5.00]");
  EXPECT_EQ(Texts(masks::kWhole, {0, -0.5, 999999.5}), "[0][-1][1,000,000]");
  EXPECT_EQ(Texts(masks::kCount, {0, -0.4, 1663.86, 1e23}),
            "[][][1,664][99,999,999,999,999,991,611,392]");
  EXPECT_EQ(Texts(masks::kLongCount, {123456789012, 999}), "[123,456,789,012][999]");
  EXPECT_EQ(Texts(masks::kTime, {93000, 0, 1234567, -5}),
            "[09:30:00][00:00:00][123:45:67][-00:00:05]");
  EXPECT_EQ(Texts(masks::kDate, {990426, 1000426, 1e15}),
            "[99/04/26][100/04/26][100000000000/00/00]");
  EXPECT_EQ(Texts(masks::kSixDigits, {426, 1000426}), "[000426][1000426]");
}

TEST(Mask, RoundsHalvesAwayFromZeroOnTheShortestText) {
  EXPECT_EQ(masks::kPrice.Format(0.125f), "0.13");
  EXPECT_EQ(masks::kPrice.Format(16.035f), "16.04");  // the float lies below
  EXPECT_EQ(masks::kPrice.Format(static_cast<double>(16.035f)), "16.03");
  EXPECT_EQ(masks::kPrice.Format(2.675), "2.68");
  EXPECT_EQ(masks::kPrice.Format(-1.005), "-1.01");
  EXPECT_EQ(masks::kPrice.Format(0.1f + 0.2f), "0.30");
  EXPECT_EQ(masks::kCount.Format(16777217.0f), "16,777,216");
  EXPECT_EQ(masks::kPrice.Format(123456792.0f), "123,456,792.00");
  EXPECT_EQ(masks::kPrice.Format(1e15 + 0.625), "1,000,000,000,000,000.60");
}

TEST(Mask, GivesNoTextToWhatIsNoNumber) {
  std::string row = "x";
  masks::kMoney.Append(row, std::numeric_limits<float>::infinity());
  masks::kMoney.Append(row, std::nan(""));
  EXPECT_EQ(row, "x");
  EXPECT_EQ(NumberText(std::nanf("")) + NumberText(-HUGE_VAL), "");
}

TEST(Mask, PrintsTheExtremesOfItsTypes) {
  const std::string most = masks::kMoney.Format(std::numeric_limits<double>::max());
  EXPECT_EQ(most.size(), 309u + 102u + 3u);
  EXPECT_EQ(most.substr(0, 12), "179,769,313,");
  EXPECT_EQ(masks::kMoney.Format(std::numeric_limits<double>::denorm_min()), "0.00");
  EXPECT_EQ(masks::kMoney.Format(-std::numeric_limits<float>::denorm_min()), "0.00");
}

// The judge: integer arithmetic on the significant digits of the shortest text.
template <typename Float>
std::int64_t RoundedByDigits(Float value, int decimals) {
  char text[64];
  *std::to_chars(text, text + 63, std::abs(value), std::chars_format::scientific).ptr = 0;
  std::int64_t digits = text[0] - '0';
  const char* c = text + 1;
  int shift = decimals;  // powers of ten from `digits` to the result
  for (; *c != 'e'; ++c) {
    if (*c == '.') continue;
    digits = digits * 10 + (*c - '0');
    --shift;
  }
  for (shift += std::atoi(c + 1); shift > 0; --shift) digits *= 10;
  std::int64_t divisor = 1;
  for (; shift < 0 && divisor < 1'000'000'000'000'000'000; ++shift) divisor *= 10;
  const std::int64_t rest = digits % divisor;
  digits = digits / divisor + (rest >= divisor - rest ? 1 : 0);
  return value < 0 ? -digits : digits;
}

template <typename Float>
void CompareWithJudge(Float value, std::string& text) {
  static constexpr const Mask* kMasks[] = {&masks::kCount, nullptr, &masks::kPrice, &masks::kRate};
  for (const int decimals : {0, 2, 3}) {
    text.clear();
    kMasks[decimals]->Append(text, value);
    std::int64_t shown = 0;
    for (const char c : text) {
      if (c >= '0' && c <= '9') shown = shown * 10 + (c - '0');
    }
    if (text.starts_with('-')) shown = -shown;
    ASSERT_EQ(shown, RoundedByDigits(value, decimals)) << NumberText(value) << " as " << text;
  }
}

// Prices, ties and their next neighbours, and values of every size below `limit`.
template <typename Float>
void CompareMany(Float limit) {
  std::mt19937_64 random(41);
  std::string text;
  for (int i = 0; i < 80'000 && !testing::Test::HasFatalFailure(); ++i) {
    const auto number = static_cast<Float>(random() >> (20 + random() % 44));
    const Float unit = random() % 2 == 0 ? Float{100} : Float{1000};
    const Float tie = std::min((number + Float{0.5}) / unit, limit);
    CompareWithJudge(std::min(number / unit, limit), text);
    CompareWithJudge(tie, text);
    CompareWithJudge(-std::nextafter(tie, Float{0}), text);
    CompareWithJudge(std::min(std::nextafter(tie, 2 * limit), limit), text);
    CompareWithJudge(limit / (1 + number), text);
  }
}

TEST(Mask, AgreesWithTheDigitsOfManyFloats) { CompareMany<float>(0x1p24f); }
TEST(Mask, AgreesWithTheDigitsOfManyDoubles) { CompareMany<double>(9e14); }

TEST(NumberText, IsTheShortestThatReadsBack) {
  EXPECT_EQ(NumberText(0.5), "0.5");
  EXPECT_EQ(NumberText(-0.0), "0");
  EXPECT_EQ(NumberText(12.10f), "12.1");
  EXPECT_EQ(NumberText(static_cast<double>(12.10f)), "12.100000381469727");
  EXPECT_EQ(NumberText(93000.0f), "93000");
  EXPECT_EQ(NumberText(1e-7), "0.0000001");
  EXPECT_EQ(NumberText(999999999999999.0), "999999999999999");
  EXPECT_EQ(NumberText(-1.5e15), "-1.5E+15");
  EXPECT_EQ(NumberText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

}  // namespace

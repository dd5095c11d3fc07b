#include "base/masks.h"

#include <charconv>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <type_traits>

namespace {

using namespace base;  // NOLINT

template <typename Float = double>
std::string Texts(const Mask& mask, std::initializer_list<std::type_identity_t<Float>> values) {
  std::string texts;
  for (const Float value : values) texts += '[' + mask.Format(value) + ']';
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
  // 16.035 lies above its float.
  EXPECT_EQ(Texts<float>(masks::kPrice, {0.125F, 16.035F, 0.1F + 0.2F, 123456792.0F}),
            "[0.13][16.04][0.30][123,456,792.00]");
  EXPECT_EQ(Texts(masks::kPrice, {double{16.035F}, 2.675, -1.005, 1e15 + 0.625}),
            "[16.03][2.68][-1.01][1,000,000,000,000,000.60]");
}

TEST(Mask, TakesTheExtremesOfItsTypesAndGivesNoTextToWhatIsNoNumber) {
  EXPECT_EQ(Texts(masks::kMoney, {HUGE_VAL, std::nan(""), 5E-324}), "[][][0.00]");
  EXPECT_EQ(Texts(masks::kMoney, {-std::numeric_limits<float>::denorm_min()}), "[0.00]");
  const std::string most = masks::kMoney.Format(std::numeric_limits<double>::max());
  EXPECT_EQ(most.size(), 309u + 102u + 3u);
  EXPECT_EQ(most.substr(0, 12), "179,769,313,");
}

// The judge: the shortest text as a whole number, cut one digit past the last that is shown.
template <typename Float>
std::int64_t RoundedByDigits(Float value, std::size_t decimals) {
  char text[400];
  std::string plain(text, std::to_chars(text, text + 400, value, std::chars_format::fixed).ptr);
  const std::size_t point = std::min(plain.find('.'), plain.size());
  plain.erase(point, 1);
  plain.resize(point + decimals + 1, '0');
  return (std::stoll(plain) + (value < 0 ? -5 : 5)) / 10;
}

template <typename Float>
void CompareWithJudge(Float value) {
  const std::pair<const Mask*, std::size_t> kMasks[] = {
      {&masks::kCount, 0}, {&masks::kPrice, 2}, {&masks::kRate, 3}};
  for (const auto& [mask, decimals] : kMasks) {
    std::string text = mask->Format(value);
    std::erase_if(text, [](char c) { return c == ',' || c == '.'; });
    ASSERT_EQ(text.empty() ? 0 : std::stoll(text), RoundedByDigits(value, decimals))
        << NumberText(value);
  }
}

// Prices, ties and their next neighbours, and values of every size below `limit`.
template <typename Float>
void CompareMany(Float limit) {
  std::mt19937_64 random(41);
  for (int i = 0; i < 80'000 && !testing::Test::HasFatalFailure(); ++i) {
    const auto number = static_cast<Float>(random() >> (20 + random() % 44));
    const Float unit = random() % 2 == 0 ? Float{100} : Float{1000};
    const Float tie = std::min((number + Float{0.5}) / unit, limit);
    CompareWithJudge(std::min(number / unit, limit));
    CompareWithJudge(tie);
    CompareWithJudge(-std::nextafter(tie, Float{0}));
    CompareWithJudge(std::min(std::nextafter(tie, 2 * limit), limit));
    CompareWithJudge(limit / (1 + number));
  }
}

TEST(Mask, AgreesWithTheDigitsOfManyFloats) { CompareMany<float>(0x1p24F); }
TEST(Mask, AgreesWithTheDigitsOfManyDoubles) { CompareMany<double>(9e14); }

TEST(NumberText, IsTheShortestThatReadsBack) {
  const std::pair<double, const char*> cases[] = {
      {-0.0, "0"},           {double{12.10F}, "12.100000381469727"},
      {1e-7, "0.0000001"},   {999999999999999.0, "999999999999999"},
      {-1.5e15, "-1.5E+15"}, {-HUGE_VAL, ""}};
  for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value), text);
  EXPECT_EQ(NumberText(12.10F), "12.1");
  EXPECT_EQ(NumberText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

}  // namespace

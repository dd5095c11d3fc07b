#include "metastock/mbf.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>

#include "support/meta_store.h"

namespace {

using namespace metastock;  // NOLINT

std::string Stored(float value) {
  std::string out;
  AppendMbf(out, value);
  return out;
}

TEST(Mbf, EveryExponentAgreesWithPlainArithmeticAndComesBack) {
  constexpr std::uint32_t kSign = 0x80000000, kLowExponentBit = 0x800000,
                          kWrapsToZeros = 0x7F000000;
  for (std::uint32_t exponent = 0; exponent < 256; ++exponent) {
    for (const std::uint32_t mantissa : {0x0U, 0x1U, 0x2AAAAAU, 0x5678FFU, 0x7FFFFFU}) {
      for (const std::uint32_t sign : {0U, kSign}) {
        const std::uint32_t bits = sign | exponent << 23U | mantissa;
        const auto ieee = std::bit_cast<Field>(bits);
        const Field mbf = IeeeToMbf(ieee);
        const std::string bytes(mbf.begin(), mbf.end());
        if (exponent > 0 && exponent < 254) {
          EXPECT_EQ(support::MbfValue(bytes), double{std::bit_cast<float>(bits)}) << bits;
        }
        // A negative one keeps its sign bit in the place of the exponent's lowest.
        const std::uint32_t back = sign != 0 ? bits | kLowExponentBit : bits;
        EXPECT_EQ(std::bit_cast<std::uint32_t>(MbfToIeee(mbf)), bits == kWrapsToZeros ? 0 : back);
      }
    }
  }
}

TEST(Mbf, NumbersBecomeBytesAndBytesNumbers) {
  EXPECT_EQ(Stored(0) + Stored(1) + Stored(-1),
            std::string("\0\0\0\x02\0\0\0\x81\0\0\x80\x81", 12));
  for (const float value : {1000426.0F, 991231.0F, 93000.0F, 17.35F, 0.01F, 2.5e9F}) {
    EXPECT_EQ(Stored(value), support::Mbf(value));
    EXPECT_EQ(FromMbf(Stored(value) + "tail"), value);
  }
  EXPECT_EQ(FromMbf(Stored(0)), 0.0F);
  EXPECT_EQ(FromMbf(std::string(4, '\0')), 0.0F);
  EXPECT_EQ(FromMbf("\x01\x02\x83"), 0.0F);
  EXPECT_EQ(FromMbf(Stored(-2)), -4.0F);
  EXPECT_TRUE(std::isinf(FromMbf(std::string("\0\0\0\x01", 4))));
  EXPECT_TRUE(std::isnan(FromMbf("\x01\x01\x01\x01")));
}

}  // namespace

#include "metastock/mbf.h"

#include <bit>
#include <cstring>

namespace metastock {
namespace {

constexpr unsigned kTopBit = 128;
// What an MBF exponent has above that of the same IEEE number.
constexpr unsigned kBiasAbove = 129 - 127;

unsigned char Byte(unsigned value) { return static_cast<unsigned char>(value & 255U); }

}  // namespace

Field IeeeToMbf(Field ieee) {
  const unsigned sign = ieee[3] & kTopBit;
  const unsigned exponent = ieee[3] * 2U | ieee[2] / kTopBit;
  return {ieee[0], ieee[1], Byte((ieee[2] & ~kTopBit) | sign), Byte(exponent + kBiasAbove)};
}

Field MbfToIeee(Field mbf) {
  if (mbf == Field{}) return mbf;
  const unsigned exponent = Byte(mbf[3] - kBiasAbove);
  const unsigned sign = mbf[2] & kTopBit;
  // The sign bit stays in place where the exponent is even, of a negative number too.
  const unsigned high = exponent % 2 != 0 ? mbf[2] | kTopBit : mbf[2];
  return {mbf[0], mbf[1], Byte(high), Byte(exponent / 2 | sign)};
}

float FromMbf(std::string_view bytes) {
  Field mbf{};
  if (bytes.size() < mbf.size()) return 0;
  std::memcpy(mbf.data(), bytes.data(), mbf.size());
  return std::bit_cast<float>(MbfToIeee(mbf));
}

void AppendMbf(std::string& out, float value) {
  const Field mbf = IeeeToMbf(std::bit_cast<Field>(value));
  out.append(reinterpret_cast<const char*>(mbf.data()), mbf.size());
}

}  // namespace metastock

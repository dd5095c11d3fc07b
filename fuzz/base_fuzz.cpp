#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/ansi.h"
#include "base/bytes.h"
#include "base/inflate.h"
#include "base/masks.h"
#include "base/text.h"
#include "base/val.h"

// Everything of base/ that meets bytes from outside. `Check` holds in every build.
namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

void CheckVal(std::string_view bytes) {
  const auto value = base::Val(bytes);
  if (!value) return;
  Check(std::isfinite(*value));
  Check(base::Val(base::NumberText(*value)) == value);
  // What follows a character that can't belong to a number is never read.
  Check(base::Val(std::string(bytes) + "]9") == value);
  const auto integer = base::ToInteger<std::int16_t>(*value);
  Check(integer.has_value() == (std::nearbyint(*value) >= -32768 && *value < 32767.5));
}

// A mask's text reads back to within half of its last decimal.
template <typename Float>
void CheckMask(const base::Mask& mask, Float value, double unit) {
  std::string text = mask.Format(value);
  Check(text.empty() || std::isfinite(value));
  std::erase(text, ',');
  const double number = static_cast<double>(value);
  const double reach = unit / 2 + std::abs(number) * 1e-6;
  const auto shown = base::Val(text);
  if (std::isfinite(value)) Check(shown && std::abs(*shown - number) <= reach);
}

template <typename Float>
void CheckNumber(std::string_view bytes) {
  Float value = 0;
  if (!base::ReadField(bytes, 0, value)) return;
  CheckMask(base::masks::kMoney, value, 0.01);
  CheckMask(base::masks::kOpenRate, value, 0.001);
  CheckMask(base::masks::kCount, value, 1);
  if (!std::isfinite(value)) return;
  Check(static_cast<Float>(base::Val(base::NumberText(value)).value()) == value);
  Check(base::masks::kTime.Format(value).size() >= 8);
  const double whole = std::abs(static_cast<double>(value));
  if (whole < 100000) Check(base::masks::kSixDigits.Format(whole).size() == 6);
}

void CheckExpand(std::string_view bytes) {
  constexpr std::size_t kLimit = 1 << 16;
  std::string out = "old";
  const bool direct = base::Expand("MQ" + std::string(bytes), out, kLimit);
  Check(direct ? out.size() <= kLimit : out == "old");
  Check(base::Expand(base::Compress(bytes), out, bytes.size()) && out == bytes);
}

void CheckText(std::string_view bytes) {
  const std::string utf8 = base::AnsiToUtf8(bytes);
  Check(base::Utf8ToAnsi(utf8) == bytes);
  Check(base::CountUtf8(utf8) == bytes.size());
  Check(base::UpperUtf8(utf8) == base::AnsiToUtf8(base::UpperAnsi(bytes)));
  Check(base::Utf8ToAnsi(bytes).size() <= bytes.size());
  Check(base::CountUtf8(base::CutUtf8(bytes, 3)) <= 3);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckVal(bytes);
  CheckNumber<float>(bytes);
  CheckNumber<double>(bytes);
  CheckExpand(bytes);
  CheckText(bytes);
  return 0;
}

#include "store/code_scan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cstddef>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#include "base/text.h"

namespace store {
namespace {

constexpr std::size_t kWidth = 7;

CodeKey PackSeven(const char* bytes) {
  std::uint32_t front, back;  // two loads that share byte 3: none of them leaves the code
  std::memcpy(&front, bytes, 4);
  std::memcpy(&back, bytes + 3, 4);
  // Against blanks a blank byte becomes 0: trailing ones vanish, leading ones are shifted out.
  const CodeKey marks = (front | CodeKey{back} << 24) ^ 0x20202020202020U;
  return marks == 0 ? 0 : marks >> (std::countr_zero(marks) & ~7);
}

int FindInBlock(const CodeKey* keys, int from, CodeKey key) {
  return static_cast<int>(std::find(keys + from, keys + from + kCodeBlock, key) - keys);
}

#if defined(__x86_64__)
__attribute__((target("avx2"))) int FindAvx2(const CodeKey* keys, int count, CodeKey key) {
  const __m256i wanted = _mm256_set1_epi64x(static_cast<long long>(key));
  const auto hits = [&](int at) __attribute__((target("avx2"))) {
    const auto* four = reinterpret_cast<const __m256i*>(keys + at);
    return _mm256_cmpeq_epi64(_mm256_loadu_si256(four), wanted);
  };
  for (int i = 0; i < count; i += kCodeBlock) {
    const __m256i any = _mm256_or_si256(_mm256_or_si256(hits(i), hits(i + 4)),
                                        _mm256_or_si256(hits(i + 8), hits(i + 12)));
    if (_mm256_testz_si256(any, any) == 0) return FindInBlock(keys, i, key);
  }
  return -1;
}
#endif

}  // namespace

CodeKey PackCode(std::string_view code) {
  if (code.size() == kWidth) return PackSeven(code.data());
  code = base::Trim(code);
  if (code.size() > kWidth) return kNoCode;
  std::array<char, kWidth> padded;
  padded.fill(' ');
  std::copy(code.begin(), code.end(), padded.begin());
  return PackSeven(padded.data());
}

int FindCode(std::span<const CodeKey> keys, CodeKey key) {
  assert(keys.size() % kCodeBlock == 0);
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) {
    return FindAvx2(keys.data(), static_cast<int>(keys.size()), key);
  }
#endif
  return FindCodePortable(keys, key);
}

int FindCodePortable(std::span<const CodeKey> keys, CodeKey key) {
  const int count = static_cast<int>(keys.size());
  for (int i = 0; i < count; i += kCodeBlock) {
    const CodeKey* const block = keys.data() + i;
    bool hit = false;
    for (int k = 0; k < kCodeBlock; ++k) hit |= block[k] == key;
    if (hit) return FindInBlock(keys.data(), i, key);
  }
  return -1;
}

}  // namespace store

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/ansi.h"
#include "base/text.h"

namespace base {

/// N bytes of Windows-1252, blank padded on the right, as records hold them. Longer input is cut
/// by characters, shorter input padded. Any byte is allowed, 0 included.
template <std::size_t N>
class FixedText {
 public:
  constexpr FixedText() { bytes_.fill(' '); }
  /// Takes raw record bytes.
  constexpr explicit FixedText(std::string_view bytes) { assign(bytes); }

  /// The same text from the program's side; characters without a byte become "?".
  [[nodiscard]] static FixedText FromUtf8(std::string_view utf8) {
    return FixedText(Utf8ToAnsi(utf8));
  }

  constexpr void assign(std::string_view bytes) {
    const std::size_t n = std::min(bytes.size(), N);
    std::copy_n(bytes.begin(), n, bytes_.begin());
    std::fill(bytes_.begin() + static_cast<std::ptrdiff_t>(n), bytes_.end(), ' ');
  }

  /// All N bytes, padding included.
  [[nodiscard]] constexpr std::string_view bytes() const { return {bytes_.data(), N}; }
  [[nodiscard]] constexpr std::string_view trimmed() const { return Trim(bytes()); }
  /// UTF-8 with the padding.
  [[nodiscard]] std::string utf8() const { return AnsiToUtf8(bytes()); }
  [[nodiscard]] std::string trimmed_utf8() const { return AnsiToUtf8(trimmed()); }

  [[nodiscard]] constexpr char operator[](std::size_t i) const { return bytes_[i]; }
  friend constexpr bool operator==(const FixedText&, const FixedText&) = default;

 private:
  std::array<char, N> bytes_;
};

}  // namespace base

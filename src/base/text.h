#pragma once

#include <string>
#include <string_view>

// Text helpers. All comparisons are bytewise, unsigned and case-sensitive.
namespace base {

/// `text` without the blanks (32 only) at either end.
[[nodiscard]] constexpr std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The same at the right end only.
[[nodiscard]] constexpr std::string_view TrimEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// The characters of `text` from the 1-based position `pos`, at most `count` of them; what lies
/// past the end is left out. `pos` below 1 gives "".
[[nodiscard]] constexpr std::string_view Mid(std::string_view text, std::size_t pos,
                                             std::size_t count = std::string_view::npos) {
  if (pos < 1 || pos > text.size()) return {};
  return text.substr(pos - 1, count);
}

/// 1-based position of `what` in `text` at or after the 1-based position `from`; 0 when there is
/// none. `from` below 1 counts as 1.
[[nodiscard]] constexpr std::size_t Find(std::string_view text, std::string_view what,
                                         std::size_t from = 1) {
  const auto at = text.find(what, from < 1 ? 0 : from - 1);
  return at == std::string_view::npos ? 0 : at + 1;
}

/// `text` with every byte below 32 replaced by a blank: fit for one grid cell or one line.
[[nodiscard]] std::string OneLine(std::string_view text);

/// The first `max_chars` characters (code points) of a UTF-8 text; never cuts inside one.
[[nodiscard]] std::string_view CutUtf8(std::string_view utf8, std::size_t max_chars);

/// Number of characters (code points) of a UTF-8 text.
[[nodiscard]] std::size_t CountUtf8(std::string_view utf8);

}  // namespace base

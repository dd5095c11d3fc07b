#include "base/ansi.h"

#include <algorithm>
#include <array>

namespace base {
namespace {

// Characters of the bytes 80 to 9F; every other byte is the character of its own number.
constexpr std::array<char16_t, 32> kFrom80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsAscii(std::string_view text) {
  unsigned seen = 0;
  for (const char c : text) seen |= static_cast<unsigned char>(c);
  return seen < 0x80;
}

char16_t CharacterOf(unsigned char byte) {
  return byte >= 0x80 && byte <= 0x9F ? kFrom80[byte - 0x80u] : byte;
}

char ByteOf(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto* const found = std::find(kFrom80.begin(), kFrom80.end(), character);
  return found == kFrom80.end() ? '?' : static_cast<char>(0x80 + (found - kFrom80.begin()));
}

void AppendUtf8(std::string& out, char16_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
    return;
  }
  if (c < 0x800) {
    out += static_cast<char>(0xC0 | c >> 6);
  } else {
    out += static_cast<char>(0xE0 | c >> 12);
    out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
  }
  out += static_cast<char>(0x80 | (c & 0x3F));
}

struct Character {
  char32_t value;
  std::size_t length;  // 0: the text doesn't begin with valid UTF-8
};

Character FirstOf(std::string_view utf8) {
  const auto byte = [utf8](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
  const char32_t lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC0 || lead > 0xF7 || utf8.size() < length) return {0, 0};
  char32_t value = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {0, 0};
    value = value << 6 | (byte(i) & 0x3Fu);
  }
  constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
  if (value < kLeast[length] || value > 0x10FFFF || surrogate) return {0, 0};
  return {value, length};
}

bool IsSmall(unsigned char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7);
}

}  // namespace

std::string AnsiToUtf8(std::string_view bytes) {
  if (IsAscii(bytes)) return std::string(bytes);
  std::string utf8;
  utf8.reserve(bytes.size() + bytes.size() / 2);
  for (const char c : bytes) AppendUtf8(utf8, CharacterOf(static_cast<unsigned char>(c)));
  return utf8;
}

std::string Utf8ToAnsi(std::string_view utf8) {
  if (IsAscii(utf8)) return std::string(utf8);
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto [value, length] = FirstOf(utf8);
    bytes += length == 0 ? '?' : ByteOf(value);
    utf8.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return bytes;
}

bool IsUtf8(std::string_view bytes) {
  if (IsAscii(bytes)) return true;
  while (!bytes.empty()) {
    const std::size_t length = FirstOf(bytes).length;
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string UpperAnsi(std::string_view bytes) {
  std::string upper(bytes);
  for (char& c : upper) {
    if (IsSmall(static_cast<unsigned char>(c))) c = static_cast<char>(c - 0x20);
  }
  return upper;
}

std::string UpperUtf8(std::string_view utf8) {
  std::string upper(utf8);
  char before = 0;
  for (char& c : upper) {
    // U+00E0 to U+00FE are C3 A0 to C3 BE; their capitals C3 80 to C3 9E.
    const auto byte = static_cast<unsigned char>(c);
    const bool small = byte < 0x80 ? IsSmall(byte)
                                   : before == '\xC3' && byte < 0xC0 &&
                                         IsSmall(static_cast<unsigned char>(byte + 0x40));
    before = c;
    if (small) c = static_cast<char>(c - 0x20);
  }
  return upper;
}

}  // namespace base

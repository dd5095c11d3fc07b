#include "base/text.h"

#include <algorithm>

namespace base {
namespace {

bool StartsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; }

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line(text);
  for (char& c : line) {
    if (static_cast<unsigned char>(c) < 32) c = ' ';
  }
  return line;
}

std::string_view CutUtf8(std::string_view utf8, std::size_t max_chars) {
  std::size_t chars = 0;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    if (StartsCharacter(utf8[i]) && chars++ == max_chars) return utf8.substr(0, i);
  }
  return utf8;
}

std::size_t CountUtf8(std::string_view utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), StartsCharacter));
}

}  // namespace base

#include "services/irc_message.h"

#include <algorithm>

#include "base/ansi.h"

namespace services {
namespace {

constexpr char kColour = '\x03';

std::string_view TakeWord(std::string_view& rest) {
  const std::string_view word = rest.substr(0, rest.find(' '));
  rest.remove_prefix(word.size());
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  return word;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsControl(char c) { return static_cast<unsigned char>(c) < 32; }
bool IsMark(char c) {
  return std::string_view("\x02\x0F\x11\x16\x1D\x1E\x1F").find(c) != std::string_view::npos;
}
bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}
char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; }

/// Where a number of one or two digits at `at` ends.
std::size_t PastNumber(std::string_view text, std::size_t at) {
  for (int digits = 0; digits < 2 && at < text.size() && IsDigit(text[at]); ++digits) ++at;
  return at;
}

/// Where the mark of a colour whose numbers begin at `at` ends: "4", "04,12".
std::size_t PastColour(std::string_view text, std::size_t at) {
  const std::size_t ink = PastNumber(text, at);
  if (ink == at || ink == text.size() || text[ink] != ',') return ink;
  const std::size_t ground = PastNumber(text, ink + 1);
  return ground == ink + 1 ? ink : ground;
}

/// Servers cut long lines by bytes: what is left of the last character then falls away.
std::string AsUtf8(std::string_view bytes) {
  for (std::size_t cut = 0; cut <= std::min<std::size_t>(3, bytes.size()); ++cut) {
    const std::string_view whole = bytes.substr(0, bytes.size() - cut);
    if (base::IsUtf8(whole) && (cut == 0 || !IsAscii(whole))) return std::string(whole);
  }
  return base::AnsiToUtf8(bytes);
}

}  // namespace

IrcMessage ParseIrcLine(std::string_view rest) {
  IrcMessage message;
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  if (rest.starts_with('@')) (void)TakeWord(rest);
  if (rest.starts_with(':')) {
    const std::string_view prefix = TakeWord(rest).substr(1);
    message.sender = prefix.substr(0, prefix.find_first_of("!@"));
  }
  message.command = TakeWord(rest);
  while (!rest.empty() && message.count < IrcMessage::kMaxParams) {
    const bool to_end = rest.front() == ':';
    message.params[message.count++] = to_end ? rest.substr(1) : TakeWord(rest);
    if (to_end) break;
  }
  return message;
}

bool IrcLines::Next(std::string& line) {
  while (true) {
    const std::size_t end = chunk_.find_first_of("\r\n", at_);
    const std::string_view piece = std::string_view(chunk_).substr(at_, end - at_);
    partial_.append(piece.substr(0, kMaxLine - partial_.size()));
    if (end == std::string::npos) {
      chunk_.clear();
      at_ = 0;
      return false;
    }
    at_ = end + 1;
    if (partial_.empty()) continue;
    line.swap(partial_);
    partial_.clear();
    return true;
  }
}

void IrcLines::Clear() {
  chunk_.clear();
  partial_.clear();
  at_ = 0;
}

std::string IrcShown(std::string_view bytes) {
  std::string plain;
  plain.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == kColour) {
      i = PastColour(bytes, i + 1) - 1;
    } else if (!IsMark(bytes[i])) {
      plain += IsControl(bytes[i]) ? ' ' : bytes[i];
    }
  }
  return AsUtf8(plain);
}

std::string IrcSendable(std::string_view text, std::size_t max) {
  std::string line;
  for (const char c : text) {
    if (!IsControl(c)) line += c;
  }
  if (line.size() <= max) return line;
  while (max > 0 && (static_cast<unsigned char>(line[max]) & 0xC0u) == 0x80u) --max;
  line.resize(max);
  return line;
}

bool IrcSame(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, Small, Small);
}

std::string IrcFolded(std::string_view name) {
  std::string folded(name);
  std::ranges::transform(folded, folded.begin(), Small);
  return folded;
}

}  // namespace services

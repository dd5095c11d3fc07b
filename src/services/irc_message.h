#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace services {

/// One line of an IRC server, as views into it.
struct IrcMessage {
  static constexpr std::size_t kMaxParams = 15;

  std::string_view sender;  // nick of a person, or name of the server; "": none told
  std::string_view command;
  std::array<std::string_view, kMaxParams> params;
  std::size_t count = 0;  // of params

  [[nodiscard]] std::string_view last() const { return count > 0 ? params[count - 1] : ""; }
};

/// Any line at all; what it lacks is "".
[[nodiscard]] IrcMessage ParseIrcLine(std::string_view line);

/// Cuts what arrives into lines, which end in CR, LF or both. Of a line of more than kMaxLine bytes
/// the rest is left out.
class IrcLines {
 public:
  static constexpr std::size_t kMaxLine = 8192;

  void Add(std::string_view bytes) { chunk_.append(bytes); }
  /// The next whole line that isn't empty. False when there is none yet.
  [[nodiscard]] bool Next(std::string& line);
  void Clear();

 private:
  std::string chunk_, partial_;
  std::size_t at_ = 0;  // in chunk_
};

/// UTF-8 text of what a server sent: UTF-8, or else Windows-1252. Marks of colour and weight fall
/// away, other control characters become blanks.
[[nodiscard]] std::string IrcShown(std::string_view bytes);

/// `text` without bytes below 32, at most `max` bytes of it, never ending inside a character.
[[nodiscard]] std::string IrcSendable(std::string_view text, std::size_t max);

/// Whether two nicks or channels are the same.
[[nodiscard]] bool IrcSame(std::string_view a, std::string_view b);
/// The same for all spellings of a name.
[[nodiscard]] std::string IrcFolded(std::string_view name);

}  // namespace services

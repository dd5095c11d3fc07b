#pragma once

#include <string>
#include <string_view>

// The one place that knows the code page of records and files, Windows-1252. Inside the program
// text is UTF-8; bytes of the wire are never translated before they become a text to show.
namespace base {

/// UTF-8 text of Windows-1252 bytes. Every byte has a character: the five undefined ones
/// (81, 8D, 8F, 90, 9D) stand for the control character of the same number.
[[nodiscard]] std::string AnsiToUtf8(std::string_view bytes);

/// Windows-1252 bytes of a UTF-8 text. A character without a byte, and each byte that isn't
/// valid UTF-8, becomes "?".
[[nodiscard]] std::string Utf8ToAnsi(std::string_view utf8);

/// Whether `bytes` are UTF-8 through and through.
[[nodiscard]] bool IsUtf8(std::string_view bytes);

/// Capitals of a Windows-1252 text: a-z, and E0-FE except F7. Other bytes stay.
[[nodiscard]] std::string UpperAnsi(std::string_view bytes);

/// Capitals of a UTF-8 text, by the same rule.
[[nodiscard]] std::string UpperUtf8(std::string_view utf8);

}  // namespace base

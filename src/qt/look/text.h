#pragma once

#include <string_view>

#include <QString>

namespace qt {

[[nodiscard]] inline QString Text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// Outside text in one line: a tab becomes two blanks, any other control character one.
[[nodiscard]] QString OneLine(QString text);

/// A tool tip that shows `plain` as it stands, whatever markup it looks like, without the blanks at
/// its end. A long one is broken into lines.
[[nodiscard]] QString ToolTipText(std::string_view plain);

/// A caption as it is read out: without the "&" of its mnemonic.
[[nodiscard]] QString SpokenCaption(std::string_view caption);

/// Outside text for where "&" would mark a mnemonic.
[[nodiscard]] QString WithoutMnemonic(std::string_view plain);

}  // namespace qt

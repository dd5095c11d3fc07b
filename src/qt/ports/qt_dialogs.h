#pragma once

#include <QString>

#include "platform/ports.h"

namespace qt {

/// Message boxes in Spanish above the active window.
class QtDialogs : public platform::Dialogs {
 public:
  void Message(std::string_view text) override;
  bool Ask(std::string_view text) override;
  std::string Input(std::string_view text) override;
  void Dismiss() override;
};

/// The text as a box shows it: at most 2000 characters and 30 lines, without control characters,
/// and with places to break in words that no screen would hold.
[[nodiscard]] QString BoxText(std::string_view text);

}  // namespace qt

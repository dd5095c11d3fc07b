#pragma once

#include <vector>

#include <QDialog>
#include <QPointer>
#include <QString>

#include "platform/ports.h"

namespace qt {

/// Boxes in Spanish above the active window. It outlives the calls. From its making on Qt's own
/// boxes neither read nor write the user's settings.
class QtDialogs : public platform::Dialogs {
 public:
  QtDialogs();

  void Message(std::string_view text) override;
  bool Ask(std::string_view text) override;
  std::string Input(std::string_view text) override;
  std::optional<base::Color> Color(base::Color current) override;
  void Dismiss() override;

 private:
  /// Waits for the user's answer. False when the box is gone: it may be closed with the window
  /// below it.
  [[nodiscard]] bool Run(const QPointer<QDialog>& box);

  std::vector<QPointer<QDialog>> open_;  // each waits for the next
  bool dismissed_ = false;
};

/// The text as a box shows it: at most 2000 characters and 30 lines, without control characters,
/// and with places to break in words that no screen would hold.
[[nodiscard]] QString BoxText(std::string_view text);

}  // namespace qt

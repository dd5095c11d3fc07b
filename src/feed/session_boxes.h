#pragma once

#include <string>
#include <string_view>

#include "platform/ports.h"

namespace feed {

/// The modal boxes that socket and timer code raises. While one is open the ticks of the session's
/// timers are dropped. One data event raises a limited number of boxes, so that the user gets a
/// word in between whatever the server sends. `dialogs` outlives it.
class SessionBoxes {
 public:
  explicit SessionBoxes(platform::Dialogs& dialogs) : dialogs_(dialogs) {}

  /// Returns when the user has answered; at once when no box may open.
  void Message(std::string_view text) {
    if (!allowed()) return;
    --left_;
    ++open_;
    dialogs_.Message(text);
    --open_;
  }
  /// What the user types; "" when he gives up or no box may open.
  std::string Input(std::string_view text) {
    if (!allowed()) return {};
    --left_;
    ++open_;
    std::string line = dialogs_.Input(text);
    --open_;
    return line;
  }
  [[nodiscard]] bool open() const { return open_ > 0; }
  /// Whether a box may open.
  [[nodiscard]] bool allowed() const { return left_ > 0; }
  /// An event begins.
  void Renovar() { left_ = kPerEvent; }
  /// The program ends: no more boxes until the next event.
  void Silenciar() { left_ = 0; }

 private:
  static constexpr int kPerEvent = 51;

  platform::Dialogs& dialogs_;
  int open_ = 0;
  int left_ = kPerEvent;
};

}  // namespace feed

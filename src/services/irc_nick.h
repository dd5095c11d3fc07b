#pragma once

#include <string>
#include <string_view>

namespace services {

/// The nick to ask for, and others to ask for where a server doesn't take it. Ends after some
/// tries.
class IrcNick {
 public:
  static constexpr int kTries = 16;

  /// Cut at its first blank, without bytes below 32; "invitado" where nothing is left.
  explicit IrcNick(std::string_view wanted = {});

  [[nodiscard]] const std::string& nick() const { return nick_; }
  /// It is in use: the same with something behind it. False when there is no other to try.
  [[nodiscard]] bool Another();
  /// It is no nick: one that is, as near to it as can be. False when there is no other to try.
  [[nodiscard]] bool Valid();

 private:
  std::string base_, nick_;
  int tries_ = 1, suffix_ = 0;
};

}  // namespace services

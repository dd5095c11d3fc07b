#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "platform/text_log.h"
#include "platform/window.h"
#include "services/irc_client.h"

namespace services {

/// Chat of the users on the channel "#Cotirama". Connects when it is loaded, with the session's
/// login fields, and takes leave when it is unloaded. Without a server it says so and connects
/// nowhere. What was said stays in sight when the connection ends; loading it again connects again.
class Irc : public platform::Window {
 public:
  static constexpr std::string_view kCanal = "#Cotirama";
  /// The service's chat. There is none so far.
  static constexpr std::string_view kServidor = "";

  explicit Irc(platform::Platform& platform);

  platform::TextLog T;                          // conversation
  platform::TextBox C;                          // input line
  platform::ListBox L;                          // people
  platform::Label Estado;                       // what holds the chat up, or another nick, or ""
  ChatServer servidor{std::string(kServidor)};  // read when the window is loaded

  struct Steps {
    std::function<std::string()> Usuario, Clave;  // of the session, UTF-8
  } steps;

  /// Says what stands in `C`. It stays there while that can't go out.
  void C_KeyPress();

 protected:
  void OnLoad() override;
  void OnUnload() override;
  void OnActivate() override;

 private:
  void Irc1_Joined();
  void Irc1_Names(const std::vector<std::string>& people);
  void Irc1_Ended(std::string_view why);
  [[nodiscard]] std::string Nota() const;

  IrcClient Irc1;
  std::string pedido_;      // nick that was asked for
  bool esperando_ = false;  // to be let into the channel
};

}  // namespace services

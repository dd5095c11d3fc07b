#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "platform/timer.h"
#include "services/irc_message.h"
#include "services/irc_nick.h"
#include "services/irc_people.h"

namespace services {

/// Where a chat is reached. No host: there is none.
struct ChatServer {
  std::string host;
  std::uint16_t port = 6667;
};

/// A small client of an IRC server: connects, gives a nick, joins, says, hears. Answers pings,
/// takes another nick where its own is in use, keeps the list of people of its one channel. The
/// server may send anything, of any length. Texts are UTF-8; what isn't is read as Windows-1252.
/// Bytes below 32 are removed from all that is sent, so nothing that is said can be a command. An
/// event may call it again. `platform` outlives it; it must not end inside an event of its own.
class IrcClient {
 public:
  /// What `why` says is for people to read.
  struct Events {
    std::function<void()> ready;  // the server has taken the nick
    std::function<void()> joined;
    std::function<void(const std::vector<std::string>& people)> names;
    std::function<void(std::string_view sender, std::string_view text)> message;
    std::function<void(std::string_view sender, std::string_view text)> action;  // what he does
    /// Connected still, but not let into the channel, put out of it, or not heard there.
    std::function<void(std::string_view why)> refused;
    std::function<void(std::string_view why)> ended;  // the connection is gone
  };

  IrcClient(platform::Platform& platform, Events events);

  /// `nick` is cut at its first blank; `identity` goes to the server only, as its password.
  void Connect(const ChatServer& server, std::string_view nick, std::string_view identity);
  void Join(std::string_view channel);
  /// In several messages where one has no room for it. False when it doesn't go out.
  [[nodiscard]] bool Say(std::string_view text, std::string_view target);
  /// Takes leave and closes, the connection a moment later. No event follows.
  void Quit();

  /// The server has taken the nick.
  [[nodiscard]] bool connected() const { return stage_ == Stage::ready; }
  [[nodiscard]] bool in_channel() const { return in_channel_; }
  /// As the server knows it.
  [[nodiscard]] const std::string& nick() const { return nick_; }

 private:
  enum class Stage { idle, connecting, registering, ready, leaving };
  using Handler = void (IrcClient::*)(const IrcMessage&);

  [[nodiscard]] static Handler HandlerOf(std::string_view command);

  void OnConnected();
  void OnData();
  void End(std::string_view why);
  void Hang();
  void Reset(Stage stage);
  void LeaveChannel(std::string_view why);
  void TellPeople();
  [[nodiscard]] bool Send(std::string_view line);
  void AskForNick(bool there_is_one);
  [[nodiscard]] bool IsMe(std::string_view nick) const;
  [[nodiscard]] bool IsChannel(std::string_view name) const;

  void OnWelcome(const IrcMessage& message);
  void OnPing(const IrcMessage& message);
  void OnNickInUse(const IrcMessage& message);
  void OnNickInvalid(const IrcMessage& message);
  void OnSomeNames(const IrcMessage& message);
  void OnEndOfNames(const IrcMessage& message);
  void OnJoin(const IrcMessage& message);
  void OnPart(const IrcMessage& message);
  void OnKick(const IrcMessage& message);
  void OnQuit(const IrcMessage& message);
  void OnNick(const IrcMessage& message);
  void OnPrivateMessage(const IrcMessage& message);
  void OnRefusal(const IrcMessage& message);
  void OnNoEntry(const IrcMessage& message);
  void OnKill(const IrcMessage& message);
  void OnError(const IrcMessage& message);

  platform::Platform& platform_;
  Events events_;
  std::unique_ptr<platform::Socket> socket_;  // from the first connection on
  platform::Timer patience_;                  // with a server that doesn't close
  Stage stage_ = Stage::idle;
  std::uint64_t connection_ = 0;  // counts beginnings and ends
  IrcLines lines_;
  IrcNick wanted_;
  IrcPeople people_;
  std::string nick_, identity_, channel_;
  bool in_channel_ = false, people_changed_ = false;
};

}  // namespace services

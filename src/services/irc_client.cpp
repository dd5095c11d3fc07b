#include "services/irc_client.h"

#include <algorithm>
#include <utility>

#include "services/irc_reasons.h"

namespace services {
namespace {

constexpr int kPatienceMs = 2000;
constexpr std::size_t kTurn = 16 * 1024;  // bytes read in one go
constexpr std::size_t kMaxText = 400;     // leaves room for what the server puts in front
constexpr std::size_t kMaxName = 64;
constexpr std::string_view kAction =
    "\x01"
    "ACTION ";

std::string_view WithoutMark(std::string_view text, char mark) {
  if (text.ends_with(mark)) text.remove_suffix(1);
  return text;
}

/// A nick or channel as one word.
std::string Name(std::string_view name) {
  return IrcSendable(name.substr(0, name.find(' ')), kMaxName);
}

}  // namespace

IrcClient::IrcClient(platform::Platform& platform, Events events)
    : platform_(platform), events_(std::move(events)), patience_(platform, kPatienceMs, false) {
  patience_.on_tick = [this] { Hang(); };
}

void IrcClient::Connect(const ChatServer& server, std::string_view nick,
                        std::string_view identity) {
  if (!socket_) {
    socket_ =
        platform_.MakeSocket({.connected = [this] { OnConnected(); },
                              .data = [this] { OnData(); },
                              .closed = [this] { End("El servidor ha cerrado la conexión."); },
                              .error = [this](const std::string& text) { End(text); }});
  }
  Hang();
  wanted_ = IrcNick(nick);
  identity_ = IrcSendable(identity, kMaxText);
  socket_->set_remote_host(server.host);
  socket_->set_remote_port(server.port);
  if (socket_->Connect()) stage_ = Stage::connecting;
}

void IrcClient::Join(std::string_view channel) {
  if (stage_ != Stage::ready) return;
  channel_ = Name(channel);
  (void)Send("JOIN " + channel_);
}

bool IrcClient::Say(std::string_view text, std::string_view target) {
  const std::string to = Name(target);
  const std::string all = IrcSendable(text, text.size());
  std::string messages;
  for (std::string_view rest = all; !rest.empty();) {
    const std::string piece = IrcSendable(rest, kMaxText);
    rest.remove_prefix(piece.empty() ? rest.size() : piece.size());
    messages += "PRIVMSG " + to + " :" + piece + "\r\n";
  }
  return stage_ == Stage::ready && !to.empty() && !messages.empty() && socket_->Send(messages);
}

void IrcClient::Quit() {
  if (stage_ == Stage::leaving) return;
  const std::string part = in_channel_ ? "PART " + channel_ + "\r\n" : "";
  const bool told = (stage_ == Stage::registering || stage_ == Stage::ready) && Send(part + "QUIT");
  told ? Reset(Stage::leaving) : Hang();
}

void IrcClient::OnConnected() {
  stage_ = Stage::registering;
  const std::string password = identity_.empty() ? "" : "PASS :" + identity_ + "\r\n";
  identity_.clear();
  (void)Send(password + "NICK " + wanted_.nick() + "\r\nUSER cotirama 0 * :Cotirama");
}

void IrcClient::OnData() {
  lines_.Add(socket_->Read(kTurn));
  if (stage_ == Stage::leaving) return lines_.Clear();
  const std::uint64_t connection = connection_;
  std::string line;
  // A handler may end the connection, and with it what else has come.
  while (connection == connection_ && lines_.Next(line)) {
    const IrcMessage message = ParseIrcLine(line);
    if (const Handler handler = HandlerOf(message.command)) (this->*handler)(message);
  }
  if (connection == connection_) TellPeople();
}

void IrcClient::End(std::string_view why) {
  const bool heard = stage_ != Stage::idle && stage_ != Stage::leaving;
  const std::string reason(why);
  Hang();
  if (heard && events_.ended) events_.ended(reason);
}

void IrcClient::Hang() {
  Reset(Stage::idle);
  if (socket_) socket_->Close();
}

void IrcClient::Reset(Stage stage) {
  ++connection_;
  stage_ = stage;
  lines_.Clear();
  people_.Clear();
  nick_.clear();
  channel_.clear();
  in_channel_ = people_changed_ = false;
  patience_.set_enabled(stage == Stage::leaving);
}

void IrcClient::LeaveChannel(std::string_view why) {
  in_channel_ = false;
  people_.Clear();
  people_changed_ = true;
  if (events_.refused) events_.refused(why);
}

// Once for all that has come in one go: a list of names may change with each line.
void IrcClient::TellPeople() {
  if (std::exchange(people_changed_, false) && events_.names) events_.names(people_.names());
}

bool IrcClient::Send(std::string_view line) { return socket_->Send(std::string(line) + "\r\n"); }

void IrcClient::AskForNick(bool there_is_one) {
  if (!there_is_one) return End("El servidor no admite ningún apodo parecido al del usuario.");
  (void)Send("NICK " + wanted_.nick());
}

bool IrcClient::IsMe(std::string_view nick) const { return !nick_.empty() && IrcSame(nick, nick_); }

bool IrcClient::IsChannel(std::string_view name) const {
  return !channel_.empty() && IrcSame(name, channel_);
}

IrcClient::Handler IrcClient::HandlerOf(std::string_view command) {
  struct Entry {
    std::string_view command;
    Handler handler;
  };
  static constexpr Entry kHandlers[] = {
      {"PRIVMSG", &IrcClient::OnPrivateMessage},
      {"PING", &IrcClient::OnPing},
      {"JOIN", &IrcClient::OnJoin},
      {"PART", &IrcClient::OnPart},
      {"QUIT", &IrcClient::OnQuit},
      {"NICK", &IrcClient::OnNick},
      {"KICK", &IrcClient::OnKick},
      {"ERROR", &IrcClient::OnError},
      {"KILL", &IrcClient::OnKill},
      {"001", &IrcClient::OnWelcome},
      {"353", &IrcClient::OnSomeNames},
      {"366", &IrcClient::OnEndOfNames},
      {"403", &IrcClient::OnRefusal},
      {"404", &IrcClient::OnRefusal},
      {"405", &IrcClient::OnRefusal},
      {"432", &IrcClient::OnNickInvalid},
      {"433", &IrcClient::OnNickInUse},
      {"436", &IrcClient::OnNickInUse},
      {"437", &IrcClient::OnNickInUse},
      {"463", &IrcClient::OnNoEntry},
      {"464", &IrcClient::OnNoEntry},
      {"465", &IrcClient::OnNoEntry},
      {"471", &IrcClient::OnRefusal},
      {"473", &IrcClient::OnRefusal},
      {"474", &IrcClient::OnRefusal},
      {"475", &IrcClient::OnRefusal},
      {"476", &IrcClient::OnRefusal},
      {"477", &IrcClient::OnRefusal},
  };
  const auto* const entry = std::ranges::find(kHandlers, command, &Entry::command);
  return entry == std::end(kHandlers) ? nullptr : entry->handler;
}

void IrcClient::OnWelcome(const IrcMessage& message) {
  if (stage_ != Stage::registering) return;
  stage_ = Stage::ready;
  nick_ = Name(message.params[0]);
  if (nick_.empty()) nick_ = wanted_.nick();
  if (events_.ready) events_.ready();
}

void IrcClient::OnPing(const IrcMessage& message) {
  (void)Send("PONG :" + IrcSendable(message.last(), kMaxText));
}

void IrcClient::OnNickInUse(const IrcMessage& message) {
  stage_ == Stage::registering ? AskForNick(wanted_.Another()) : OnRefusal(message);
}

void IrcClient::OnNickInvalid(const IrcMessage&) {
  if (stage_ == Stage::registering) AskForNick(wanted_.Valid());
}

void IrcClient::OnSomeNames(const IrcMessage& message) {
  if (message.count < 2 || !IsChannel(message.params[message.count - 2])) return;
  people_.Listed(message.last());
}

void IrcClient::OnEndOfNames(const IrcMessage& message) {
  if (!IsChannel(message.params[1])) return;
  people_.ListEnds();
  people_changed_ = true;
}

void IrcClient::OnJoin(const IrcMessage& message) {
  if (!IsChannel(message.params[0])) return;
  people_.Add(message.sender);
  people_changed_ = true;
  if (!IsMe(message.sender) || in_channel_) return;
  in_channel_ = true;
  if (events_.joined) events_.joined();
}

void IrcClient::OnPart(const IrcMessage& message) {
  if (!IsChannel(message.params[0])) return;
  if (IsMe(message.sender)) return LeaveChannel("El servidor le ha sacado del canal.");
  people_.Remove(message.sender);
  people_changed_ = true;
}

void IrcClient::OnKick(const IrcMessage& message) {
  if (!IsChannel(message.params[0])) return;
  if (IsMe(message.params[1])) {
    return LeaveChannel(IrcReason("Le han echado del canal", message.params[2]));
  }
  people_.Remove(message.params[1]);
  people_changed_ = true;
}

void IrcClient::OnQuit(const IrcMessage& message) {
  people_.Remove(message.sender);
  people_changed_ = true;
}

void IrcClient::OnNick(const IrcMessage& message) {
  if (message.params[0].empty()) return;
  if (IsMe(message.sender)) nick_ = Name(message.params[0]);
  people_.Rename(message.sender, message.params[0]);
  people_changed_ = true;
}

void IrcClient::OnPrivateMessage(const IrcMessage& message) {
  const std::string_view to = message.params[0];
  std::string_view text = message.params[1];
  if (message.sender.empty() || (!IsChannel(to) && !IsMe(to))) return;
  const bool action = text.starts_with(kAction);
  if (action) text = WithoutMark(text.substr(kAction.size()), '\x01');
  if (text.starts_with('\x01')) return;  // asks for something that we don't give
  const auto& event = action ? events_.action : events_.message;
  const std::string shown = IrcShown(text);
  if (!shown.empty() && event) event(IrcShown(message.sender.substr(0, kMaxName)), shown);
}

void IrcClient::OnRefusal(const IrcMessage& message) {
  if (stage_ != Stage::ready || !IsChannel(message.params[1])) return;
  if (events_.refused) events_.refused(IrcReason(message));
}

void IrcClient::OnNoEntry(const IrcMessage& message) { End(IrcReason(message)); }

void IrcClient::OnKill(const IrcMessage& message) {
  if (IsMe(message.params[0])) End(IrcReason("El servidor le ha desconectado", message.params[1]));
}

void IrcClient::OnError(const IrcMessage& message) {
  End(IrcReason("El servidor ha cerrado la conexión", message.last()));
}

}  // namespace services

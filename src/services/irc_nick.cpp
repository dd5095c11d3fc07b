#include "services/irc_nick.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "services/irc_message.h"

namespace services {
namespace {

constexpr std::string_view kGuest = "invitado";
constexpr std::size_t kMost = 200;
constexpr std::size_t kEverywhere = 9;  // characters that every server takes

bool IsDigitOrDash(char c) { return (c >= '0' && c <= '9') || c == '-'; }

bool IsOfNicks(char c) {
  const char small = static_cast<char>(c | 0x20);
  return (small >= 'a' && small <= 'z') || IsDigitOrDash(c) ||
         std::string_view("_[]\\`^{}|").find(c) != std::string_view::npos;
}

std::string ValidForm(std::string_view nick) {
  std::string valid;
  std::ranges::copy_if(nick, std::back_inserter(valid), IsOfNicks);
  if (!valid.empty() && IsDigitOrDash(valid.front())) valid.insert(0, 1, '_');
  return valid.substr(0, kEverywhere);
}

}  // namespace

IrcNick::IrcNick(std::string_view wanted)
    : base_(IrcSendable(wanted.substr(0, wanted.find(' ')), kMost)) {
  if (base_.empty()) base_ = kGuest;
  nick_ = base_;
}

bool IrcNick::Another() {
  const std::string suffix = suffix_ == 0 ? "_" : "_" + std::to_string(suffix_);
  ++suffix_;
  nick_ = std::string(base::CutUtf8(base_, kEverywhere - suffix.size())) + suffix;
  return ++tries_ <= kTries;
}

bool IrcNick::Valid() {
  const std::string valid = ValidForm(base_);
  base_ = valid.empty() || valid == nick_ ? std::string(kGuest) : valid;
  nick_ = base_;
  suffix_ = 0;
  return ++tries_ <= kTries;
}

}  // namespace services

#pragma once

#include <string>
#include <string_view>

#include "services/irc_message.h"

namespace services {

/// Why the server refuses something, for people to read: ours where the number is a known one, else
/// what the server says.
[[nodiscard]] std::string IrcReason(const IrcMessage& refusal);

/// `what`, and behind it what the server says itself, if anything.
[[nodiscard]] std::string IrcReason(std::string_view what, std::string_view server_text);

}  // namespace services

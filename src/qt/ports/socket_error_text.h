#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <QAbstractSocket>

namespace qt {

/// What the user reads about a connection that failed.
[[nodiscard]] std::string SocketErrorText(QAbstractSocket::SocketError error, std::string_view host,
                                          std::uint16_t port);

}  // namespace qt

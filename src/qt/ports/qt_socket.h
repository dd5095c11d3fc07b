#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include <QTcpSocket>

#include "platform/ports.h"
#include "qt/ports/event_pump.h"

namespace qt {

/// Where to connect really.
struct Endpoint {
  QString host;
  quint16 port = 0;
};
/// Where the host and port that the program names are found.
using Resolver = std::function<Endpoint(const std::string& host, std::uint16_t port)>;

/// A TCP client over QTcpSocket. Its state changes together with the event that tells of it. What
/// has arrived is handed over before the end or failure of the connection; a handler of `data` that
/// takes nothing isn't called again before more has arrived. Keeps about 2 MiB of unread bytes, the
/// rest stays with the system and so with the sender.
class QtSocket : public platform::Socket {
 public:
  QtSocket(Events events, const Resolver& resolve);
  ~QtSocket() override;

  void set_remote_host(std::string_view host) override { host_ = host; }
  [[nodiscard]] const std::string& remote_host() const override { return host_; }
  void set_remote_port(std::uint16_t port) override { port_ = port; }
  [[nodiscard]] State state() const override { return state_; }
  bool Connect() override;
  void Close() override;
  bool Send(std::string_view bytes) override;
  [[nodiscard]] std::string_view pending() const override;
  std::string Read(std::size_t count) override;

 private:
  enum class End { none, closed, error };

  void OnConnected();
  void OnError(QAbstractSocket::SocketError error);
  void Fill();
  bool RaiseNext();
  void RaiseData();
  void RaiseEnd();

  Events events_;
  const Resolver& resolve_;
  std::string host_;
  std::uint16_t port_ = 0;
  State state_ = State::closed;
  QTcpSocket socket_;
  std::string buffer_;
  std::size_t taken_ = 0;  // of buffer_
  bool connected_due_ = false, data_due_ = false;
  End end_due_ = End::none;
  QAbstractSocket::SocketError error_ = QAbstractSocket::UnknownSocketError;
  EventPump pump_;
};

}  // namespace qt

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ports.h"

namespace support {

/// A socket whose network is the test. What the program did stands in the public records; the test
/// plays the peer. Events run inside the test's call, or right after the handler of this socket
/// that runs at the moment; a state changes together with its event.
class FakeSocket : public platform::Socket {
 public:
  FakeSocket(Events events, std::vector<FakeSocket*>& alive);
  ~FakeSocket() override;

  // Records.
  std::string host;
  std::uint16_t port = 0;
  std::string sent;                 // all bytes sent, over all connections
  std::vector<std::string> writes;  // the same, by call
  int connects = 0, closes = 0;
  bool close_hangs = false;  // closing changes nothing

  // The peer. What doesn't fit the state of the socket is dropped.
  void Accept();
  /// Data events follow until all is read, or a handler reads nothing.
  void Arrive(std::string_view bytes);
  void PeerClose();
  void Fail(const std::string& text);

  // platform::Socket.
  void set_remote_host(std::string_view remote_host) override { host = remote_host; }
  [[nodiscard]] const std::string& remote_host() const override { return host; }
  void set_remote_port(std::uint16_t remote_port) override { port = remote_port; }
  [[nodiscard]] State state() const override { return state_; }
  bool Connect() override;
  void Close() override;
  bool Send(std::string_view bytes) override;
  [[nodiscard]] std::string_view pending() const override { return pending_; }
  std::string Read(std::size_t count) override;

 private:
  void Raise(std::function<void()> event);
  void RaiseData();

  Events events_;
  std::vector<FakeSocket*>& alive_;
  State state_ = State::closed;
  std::string pending_;
  std::deque<std::function<void()>> waiting_;
  bool in_handler_ = false;
};

}  // namespace support

#pragma once

#include <cstdint>
#include <string>
#include <thread>

namespace load {

/// A server whose one terminal finds `bytes` waiting as soon as it has said something.
class WaitingServer {
 public:
  explicit WaitingServer(std::string bytes);
  ~WaitingServer();
  WaitingServer(const WaitingServer&) = delete;
  WaitingServer& operator=(const WaitingServer&) = delete;

  [[nodiscard]] std::uint16_t port() const { return port_; }

 private:
  void Serve();

  const std::string bytes_;
  int listener_ = -1;
  std::uint16_t port_ = 0;
  std::thread thread_;
};

}  // namespace load

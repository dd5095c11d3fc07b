#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "calc/pipe.h"

namespace support {

/// A helper program that is there or not. What it is told waits in `sent`.
class FakePipe : public calc::Pipe {
 public:
  bool installed = true;
  int starts = 0;
  std::string sent;

  bool Start() override {
    ++starts;
    sent.clear();
    return running_ = installed;
  }
  [[nodiscard]] bool running() const override { return running_; }
  void Send(std::string_view bytes) override { sent += bytes; }
  void Stop() override { running_ = false; }

  [[nodiscard]] std::string TakeSent() { return std::exchange(sent, {}); }
  void Die() {
    running_ = false;
    on_end();
  }

 private:
  bool running_ = false;
};

}  // namespace support

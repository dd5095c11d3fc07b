#pragma once

#include <functional>
#include <string_view>

namespace calc {

/// A helper program: bytes into its standard input, bytes out of its standard output.
class Pipe {
 public:
  /// Set before `Start`; called from the event loop.
  std::function<void(std::string_view bytes)> on_data;
  std::function<void()> on_end;  // it has ended

  virtual ~Pipe() = default;
  /// False when there is no such program or it can't be started.
  virtual bool Start() = 0;
  [[nodiscard]] virtual bool running() const = 0;
  /// Never blocks; what it doesn't take in waits.
  virtual void Send(std::string_view bytes) = 0;
  /// Leaves it: it ends when it is free to. No `on_end` follows.
  virtual void Stop() = 0;
};

}  // namespace calc

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace load {

/// Processor time of this process so far, in seconds.
[[nodiscard]] double ProcessorTime();
/// Resident memory of this process, in MiB.
[[nodiscard]] double ResidentMiB();
/// Bytes that both ends of the connections with that local port hold unsent or unread.
[[nodiscard]] std::int64_t QueuedBytes(int port);

/// A program that runs until it ends by itself or this object does. Its output is read by the line.
class Child {
 public:
  explicit Child(std::vector<std::string> command, std::vector<std::string> environment = {});
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  /// Nothing when it ends, or writes nothing for 20 seconds.
  [[nodiscard]] std::optional<std::string> Line();
  /// Waits for its end; the processor time that it has used, in seconds.
  double Wait();

 private:
  int pid_ = -1, out_ = -1;
};

}  // namespace load

#pragma once

#include <cstdlib>
#include <string>
#include <vector>

#include <QtGlobal>

#include "process.h"

namespace load {

/// cotirama-feed on any free port, until this object ends.
class FeedProcess {
 public:
  explicit FeedProcess(const std::vector<std::string>& options) : child_(Command(options)) {
    const std::string line = child_.Line().value_or("");
    port_ = static_cast<quint16>(std::atoi(line.substr(line.find(':') + 1).c_str()));
  }
  /// 0 when it doesn't run.
  [[nodiscard]] quint16 port() const { return port_; }

 private:
  static std::vector<std::string> Command(const std::vector<std::string>& options) {
    std::vector<std::string> command{FEED_PROGRAM, "--port", "0"};
    command.insert(command.end(), options.begin(), options.end());
    return command;
  }

  Child child_;
  quint16 port_ = 0;
};

}  // namespace load

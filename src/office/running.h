#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace office {

/// An office that runs already, for the same user, out of the same home directory and on the same
/// screen.
struct Running {
  pid_t pid = 0;
  std::string executable;  // full path
  std::string profile;     // the argument that names its profile, "" when it has none
  std::vector<std::string> environment;
};

[[nodiscard]] std::vector<Running> FindRunning();

/// Lets that office listen at the pipe of this name, and waits a few seconds for it to take the
/// wish in. An office that would come up by this, since the other has just ended, is ended.
[[nodiscard]] bool OpenPipe(const Running& running, const std::string& name);

/// Whether the pipe of this name is there and is nobody's but this user's.
[[nodiscard]] bool OwnsPipe(const std::string& name);

}  // namespace office

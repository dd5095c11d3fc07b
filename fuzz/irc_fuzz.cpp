// The chat against a server that sends anything. The first byte says how much comes at a time; the
// rest follows a log-in, so that most of it is looked at.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/ansi.h"
#include "services/irc.h"
#include "support/memory_platform.h"

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

void CheckLine(std::string_view line) {
  Check(line.size() <= 512);
  for (const char c : line) Check(static_cast<unsigned char>(c) >= 32);
}

/// Whole lines, none of which holds a second command.
void CheckSent(std::string_view sent) {
  while (!sent.empty()) {
    const auto end = sent.find("\r\n");
    Check(end != std::string_view::npos);
    CheckLine(sent.substr(0, end));
    sent.remove_prefix(end + 2);
  }
}

void CheckWindow(const services::Irc& irc) {
  Check(irc.L.items().size() <= services::IrcPeople::kMost);
  for (const std::string& name : irc.L.items()) Check(base::IsUtf8(name));
  for (const std::string& line : irc.T.lines()) {
    Check(base::IsUtf8(line) && line.find('\n') == std::string::npos);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t step = data[0] == 0 ? input.size() : data[0];
  support::MemoryPlatform platform;
  services::Irc irc(platform);
  irc.servidor.host = "servidor";
  irc.steps.Usuario = irc.steps.Clave = [&] { return std::string(input.substr(0, 7)); };
  irc.Show();
  support::FakeSocket& socket = *platform.sockets.front();
  socket.Accept();
  socket.Arrive(":s 001 ana :x\r\n:ana JOIN #Cotirama\r\n");
  for (; !input.empty(); input.remove_prefix(std::min(step, input.size()))) {
    socket.Arrive(input.substr(0, step));
    irc.C.set_text(base::AnsiToUtf8(input.substr(0, 500)));
    irc.C_KeyPress();
  }
  CheckWindow(irc);
  (void)irc.Unload();
  platform.avanzar(2000);
  Check(platform.running_timers() == 0 && socket.state() == platform::Socket::State::closed);
  CheckSent(socket.sent);
  return 0;
}

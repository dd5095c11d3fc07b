#include "office/run.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <poll.h>
#include <string_view>
#include <unistd.h>

#include "calc/helper.h"
#include "office/uno_office.h"

namespace office {
namespace {

using std::chrono::steady_clock;
constexpr std::chrono::seconds kBetweenLooks(1);

/// A terminal that has gone is noticed at standard input.
void WriteAll(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return;
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// Milliseconds for poll, rounded up.
int Until(steady_clock::time_point time) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(time - steady_clock::now());
  return left.count() > 0 ? static_cast<int>(left.count()) : 0;
}

/// Hands over what is there to read; false at the end.
bool ReadSome(calc::Helper& helper) {
  std::array<char, 65536> buffer;
  const ssize_t size = read(STDIN_FILENO, buffer.data(), buffer.size());
  if (size > 0) helper.Receive({buffer.data(), static_cast<std::size_t>(size)});
  return size > 0 || (size < 0 && errno == EINTR);
}

volatile std::sig_atomic_t told_to_end = 0;

/// Never in the middle of a batch: that would leave the office's step to undo open for good. No
/// call of the office's library is interrupted either.
void EndBetweenBatches() {
  std::signal(SIGPIPE, SIG_IGN);
  struct sigaction action {};
  action.sa_handler = [](int) { told_to_end = 1; };
  action.sa_flags = SA_RESTART;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

}  // namespace

int Run() {
  EndBetweenBatches();
  UnoOffice office;
  calc::Helper helper(office, WriteAll);
  auto next_look = steady_clock::now() + kBetweenLooks;
  while (!told_to_end) {
    pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    const int ready = poll(&input, 1, helper.attached() ? Until(next_look) : -1);
    if (ready < 0 && errno != EINTR) return 1;
    if (ready > 0 && !ReadSome(helper)) return 0;
    if (!helper.attached() || steady_clock::now() < next_look) continue;
    helper.Look();
    next_look = steady_clock::now() + kBetweenLooks;
  }
  return 0;
}

}  // namespace office

#include "process.h"

#include <csignal>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace load {
namespace {

constexpr int kPatienceMs = 20000;

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

double ResidentMiB() {
  std::ifstream file("/proc/self/statm");
  double all = 0, resident = 0;
  file >> all >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

std::int64_t QueuedBytes(int port) {
  std::ifstream file("/proc/net/tcp");
  std::int64_t bytes = 0;
  for (std::string line; std::getline(file, line);) {
    unsigned from = 0, to = 0, state = 0, unsent = 0, unread = 0;
    if (std::sscanf(line.c_str(), " %*d: %*x:%x %*x:%x %x %x:%x", &from, &to, &state, &unsent,
                    &unread) != 5) {
      continue;
    }
    constexpr unsigned kEstablished = 1;
    const auto wanted = static_cast<unsigned>(port);
    if (state == kEstablished && (from == wanted || to == wanted)) {
      bytes += std::int64_t{unsent} + unread;
    }
  }
  return bytes;
}

Child::Child(std::vector<std::string> command, std::vector<std::string> environment) {
  for (char** entry = environ; *entry; ++entry) environment.emplace_back(*entry);
  int ends[2];
  if (pipe(ends) != 0) return;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, ends[0]);
  posix_spawn_file_actions_addclose(&actions, ends[1]);
  if (posix_spawn(&pid_, command[0].c_str(), &actions, nullptr, Pointers(command).data(),
                  Pointers(environment).data()) != 0) {
    pid_ = -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  out_ = ends[0];
}

Child::~Child() {
  if (pid_ > 0) kill(pid_, SIGTERM);
  Wait();
  if (out_ >= 0) close(out_);
}

std::optional<std::string> Child::Line() {
  std::string line;
  pollfd wait{out_, POLLIN, 0};
  for (char c = 0; poll(&wait, 1, kPatienceMs) == 1 && read(out_, &c, 1) == 1;) {
    if (c == '\n') return line;
    line += c;
  }
  return std::nullopt;
}

double Child::Wait() {
  if (pid_ <= 0) return 0;
  rusage used{};
  int status = 0;
  wait4(pid_, &status, 0, &used);
  pid_ = -1;
  return Seconds(used.ru_utime) + Seconds(used.ru_stime);
}

}  // namespace load

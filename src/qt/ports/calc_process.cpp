#include "qt/ports/calc_process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include <QFile>
#include <QSocketNotifier>

#include "qt/ports/parts.h"

namespace qt {
namespace {

constexpr std::size_t kMostWaiting = 8U << 20U;

/// A signal of the notifier may be what deletes it.
struct DeleteLater {
  void operator()(QSocketNotifier* notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater();
  }
};
using Notifier = std::unique_ptr<QSocketNotifier, DeleteLater>;

/// In a session of its own, so that what ends the terminal's doesn't end it in the middle of its
/// work. 0 when it can't be started.
pid_t Spawn(const std::string& program, int socket) {
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  if (posix_spawn_file_actions_init(&actions) != 0) return 0;
  if (posix_spawnattr_init(&attributes) != 0) {
    posix_spawn_file_actions_destroy(&actions);
    return 0;
  }
  posix_spawn_file_actions_adddup2(&actions, socket, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, socket, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  std::string name = program;
  const std::array<char*, 2> arguments{name.data(), nullptr};
  pid_t pid = 0;
  if (posix_spawn(&pid, program.c_str(), &actions, &attributes, arguments.data(), environ) != 0) {
    pid = 0;
  }
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return pid;
}

}  // namespace

struct CalcProcess::State {
  explicit State(CalcProcess& pipe) : pipe_(pipe) {}

  [[nodiscard]] bool Open(const std::string& program);
  void Close();
  void Send(std::string_view bytes);

  int socket = -1;

 private:
  void Read();
  void Write();
  void End();
  void Reap();

  CalcProcess& pipe_;
  Notifier readable_, writable_;
  std::string waiting_;
  pid_t pid_ = 0;
  std::vector<pid_t> left_;  // that may still be at their last work
};

bool CalcProcess::State::Open(const std::string& program) {
  Reap();
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return false;
  pid_ = Spawn(program, ends[1]);
  close(ends[1]);
  if (pid_ == 0) {
    close(ends[0]);
    return false;
  }
  socket = ends[0];
  fcntl(socket, F_SETFL, O_NONBLOCK);
  readable_.reset(new QSocketNotifier(socket, QSocketNotifier::Read));
  writable_.reset(new QSocketNotifier(socket, QSocketNotifier::Write));
  writable_->setEnabled(false);
  QObject::connect(readable_.get(), &QSocketNotifier::activated, [this] { Read(); });
  QObject::connect(writable_.get(), &QSocketNotifier::activated, [this] { Write(); });
  return true;
}

// The other end finds its input at an end as soon as it is free to look.
void CalcProcess::State::Close() {
  if (socket < 0) return;
  readable_.reset();
  writable_.reset();
  close(std::exchange(socket, -1));
  waiting_.clear();
  left_.push_back(std::exchange(pid_, 0));
  Reap();
}

void CalcProcess::State::Reap() {
  std::erase_if(left_, [](pid_t pid) { return waitpid(pid, nullptr, WNOHANG) != 0; });
}

void CalcProcess::State::End() {
  Close();
  if (pipe_.on_end) pipe_.on_end();
}

void CalcProcess::State::Read() {
  std::array<char, 65536> buffer;
  const ssize_t size = recv(socket, buffer.data(), buffer.size(), 0);
  if (size < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (size <= 0) return End();
  if (pipe_.on_data) pipe_.on_data({buffer.data(), static_cast<std::size_t>(size)});
}

void CalcProcess::State::Send(std::string_view bytes) {
  if (socket < 0 || waiting_.size() + bytes.size() > kMostWaiting) return;
  waiting_ += bytes;
  Write();
}

// What it doesn't take in waits; that it has ended is noticed by reading.
void CalcProcess::State::Write() {
  const ssize_t size = send(socket, waiting_.data(), waiting_.size(), MSG_NOSIGNAL);
  if (size > 0) waiting_.erase(0, static_cast<std::size_t>(size));
  const bool ended = size < 0 && errno != EAGAIN && errno != EINTR;
  writable_->setEnabled(!ended && !waiting_.empty());
}

CalcProcess::CalcProcess() : state_(std::make_unique<State>(*this)) {}

CalcProcess::~CalcProcess() { state_->Close(); }

bool CalcProcess::Start() {
  const QString program = FindPart(QStringLiteral("cotirama-calc"));
  Stop();
  return !program.isEmpty() && state_->Open(QFile::encodeName(program).toStdString());
}

bool CalcProcess::running() const { return state_->socket >= 0; }

void CalcProcess::Send(std::string_view bytes) { state_->Send(bytes); }

void CalcProcess::Stop() { state_->Close(); }

}  // namespace qt

#include "office/running.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace office {
namespace {

namespace fs = std::filesystem;
using std::chrono::steady_clock;

constexpr std::string_view kProfile = "-env:UserInstallation=";
constexpr std::array<std::string_view, 7> kVariables{
    "HOME", "PATH", "LANG", "LC_ALL", "TMPDIR", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"};

/// The texts of a file of /proc that ends each with a NUL.
std::vector<std::string> Texts(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<std::string> texts;
  for (std::string text; std::getline(file, text, '\0');) texts.push_back(std::move(text));
  return texts;
}

std::string Starting(const std::vector<std::string>& texts, std::string_view with) {
  const auto found = std::ranges::find_if(
      texts, [with](const std::string& text) { return text.starts_with(with); });
  return found == texts.end() ? std::string() : *found;
}

/// Of the same home and on the same screen as this process: what the user has in front of him.
bool SameDesk(const std::vector<std::string>& environment) {
  return std::ranges::all_of(
      std::array{"HOME", "DISPLAY", "WAYLAND_DISPLAY"}, [&](const char* name) {
        const char* const ours = std::getenv(name);
        const std::string with = std::string(name) + '=';
        return Starting(environment, with) == (ours ? with + ours : std::string());
      });
}

/// 0 for a name that isn't a process' number.
pid_t PidOf(const std::string& name) {
  pid_t pid = 0;
  const char* const end = name.data() + name.size();
  return std::from_chars(name.data(), end, pid).ptr == end ? pid : 0;
}

std::optional<Running> OfficeAt(const fs::path& process) {
  std::error_code error;
  const fs::path executable = fs::read_symlink(process / "exe", error);
  struct stat owner {};
  if (error || executable.filename() != "soffice.bin" || !fs::exists(executable, error) ||
      stat(process.c_str(), &owner) != 0 || owner.st_uid != geteuid())
    return {};
  // One in a container of this user's is no program of this machine's.
  if (fs::read_symlink(process / "ns/mnt", error) != fs::read_symlink("/proc/self/ns/mnt", error)) {
    return {};
  }
  Running running{.pid = PidOf(process.filename().string()),
                  .executable = executable.string(),
                  .profile = Starting(Texts(process / "cmdline"), kProfile),
                  .environment = Texts(process / "environ")};
  if (!SameDesk(running.environment)) return {};
  // What says where the profile lies, and nothing that could change what the second start runs.
  std::erase_if(running.environment, [](const std::string& text) {
    const std::string_view name = std::string_view(text).substr(0, text.find('='));
    return std::ranges::find(kVariables, name) == kVariables.end();
  });
  return running;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

/// Standard input and output are the terminal's, so they aren't for it. It ends with this process.
pid_t Spawn(const std::string& executable, std::vector<std::string> arguments,
            std::vector<std::string> environment) {
  const std::vector<char*> argv = Pointers(arguments), envp = Pointers(environment);
  const pid_t parent = getpid();
  const pid_t pid = fork();
  if (pid != 0) return std::max(pid, 0);
  // Nothing but system calls from here on: other threads may have held any lock.
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);
  const int nothing = open("/dev/null", O_RDWR);
  for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, fd);
  execve(executable.c_str(), argv.data(), envp.data());
  _exit(127);
}

bool Ended(pid_t pid) {
  const pid_t result = waitpid(pid, nullptr, WNOHANG);
  return result == pid || (result < 0 && errno != EINTR);
}

template <typename Condition>
bool WaitFor(std::chrono::seconds limit, Condition holds) {
  for (const auto end = steady_clock::now() + limit; !holds();) {
    if (steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return true;
}

}  // namespace

std::vector<Running> FindRunning() {
  std::vector<Running> found;
  std::error_code error;
  for (fs::directory_iterator it("/proc", error), end; !error && it != end; it.increment(error)) {
    if (PidOf(it->path().filename().string()) == 0) continue;
    if (auto running = OfficeAt(it->path())) found.push_back(*std::move(running));
  }
  std::ranges::sort(found, {}, &Running::pid);
  return found;
}

bool OpenPipe(const Running& running, const std::string& name) {
  // The wish goes by a second start of the same program with the same profile, which hands its
  // arguments to the first and ends. Without a screen, should it come up as an office after all.
  std::vector<std::string> arguments{running.executable, "--headless",
                                     "--norestore",      "--nologo",
                                     "--nodefault",      "--accept=pipe,name=" + name + ";urp;"};
  if (!running.profile.empty()) arguments.push_back(running.profile);
  const pid_t pid = Spawn(running.executable, std::move(arguments), running.environment);
  if (pid == 0) return false;
  const auto first_is_there = [&running] { return kill(running.pid, 0) == 0; };
  bool ended = false;
  (void)WaitFor(std::chrono::seconds(5), [&] { return (ended = Ended(pid)) || !first_is_there(); });
  if (!ended) {
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    return false;
  }
  return WaitFor(std::chrono::seconds(2), [&name] { return OwnsPipe(name); });
}

bool OwnsPipe(const std::string& name) {
  for (const char* const directory : {"/tmp", "/var/tmp"}) {
    const std::string path =
        std::string(directory) + "/OSL_PIPE_" + std::to_string(geteuid()) + '_' + name;
    struct stat info {};
    if (lstat(path.c_str(), &info) == 0) return S_ISSOCK(info.st_mode) && info.st_uid == geteuid();
  }
  return false;
}

}  // namespace office

#include "base/program_dir.h"

#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "base/ansi.h"

namespace base {
namespace {

struct CloseDirectory {
  void operator()(DIR* directory) const { closedir(directory); }
};
using Directory = std::unique_ptr<DIR, CloseDirectory>;

// `flags` O_NOFOLLOW refuses a link in the place of the directory. Null when there is none.
Directory OpenDirectory(const std::string& path, int flags) {
  const int fd = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | flags);
  if (fd < 0) return nullptr;
  Directory directory(fdopendir(fd));
  if (!directory) close(fd);
  return directory;
}

std::vector<std::string> NamesIn(DIR* directory) {
  std::vector<std::string> names;
  while (const dirent* entry = readdir(directory)) names.emplace_back(entry->d_name);
  return names;
}

// "" when no name matches; of several the first in byte order.
std::string CaseBlindMatch(const std::string& path, std::string_view name) {
  const Directory directory = OpenDirectory(path, 0);
  if (!directory) return {};
  const std::string wanted = UpperAnsi(name);
  std::string match;
  for (const std::string& candidate : NamesIn(directory.get())) {
    const bool better = match.empty() || candidate < match;
    if (better && UpperAnsi(candidate) == wanted) match = candidate;
  }
  return match;
}

}  // namespace

std::string ProgramDir::Path(std::string_view name) const {
  std::string exact = path_ + "/" + std::string(name);
  struct stat status {};
  if (lstat(exact.c_str(), &status) == 0) return exact;
  const std::string match = CaseBlindMatch(path_, name);
  return match.empty() ? exact : path_ + "/" + match;
}

bool ProgramDir::MakeDirectory(std::string_view name) const {
  const std::string path = Path(name);
  struct stat status {};
  return mkdir(path.c_str(), 0777) == 0 ||
         (stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode));
}

void ProgramDir::EmptyDirectory(std::string_view name) const {
  const Directory directory = OpenDirectory(Path(name), O_NOFOLLOW);
  if (!directory) return;
  const int fd = dirfd(directory.get());
  for (const std::string& entry : NamesIn(directory.get())) {
    struct stat status {};
    if (fstatat(fd, entry.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) continue;
    if (S_ISREG(status.st_mode) || S_ISLNK(status.st_mode)) unlinkat(fd, entry.c_str(), 0);
  }
}

}  // namespace base

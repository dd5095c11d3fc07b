#include "platform/dir_controls.h"

#include <algorithm>
#include <sys/stat.h>

namespace platform {
namespace {

// "/a//b/" becomes "/a/b".
std::string WithSingleSlashes(std::string_view path) {
  std::string plain;
  for (const char c : path) {
    if (c != '/' || plain.empty() || plain.back() != '/') plain += c;
  }
  if (plain.size() > 1 && plain.back() == '/') plain.pop_back();
  return plain;
}

bool IsDirectory(const std::string& path) {
  struct stat status {};
  return path.find('\0') == std::string::npos && stat(path.c_str(), &status) == 0 &&
         S_ISDIR(status.st_mode);
}

}  // namespace

bool DriveBox::set_drive(std::string_view drive) {
  if (std::ranges::find(drives_, drive) == drives_.end()) return false;
  if (Set(drive_, drive) && on_change) on_change();
  return true;
}

bool DirBox::set_path(std::string_view path) {
  std::string plain = WithSingleSlashes(path);
  if (!path.starts_with('/') || !IsDirectory(plain)) return false;
  if (Set(path_, std::move(plain)) && on_change) on_change();
  return true;
}

}  // namespace platform

#include "services/manual.h"

#include <sys/stat.h>

#include "base/record_file.h"
#include "platform/web_view.h"

namespace services {
namespace {

bool IsLink(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool IsAsShipped(const std::string& path, std::string_view bytes) {
  std::string content;
  return base::ReadWholeFile(path, bytes.size(), content) && content == bytes;
}

}  // namespace

std::string EscribirManual(const base::ProgramDir& directory,
                           std::span<const platform::ShippedFile> files) {
  constexpr std::string_view kManual = "Manual";
  const std::string path = directory.Path(kManual) + "/";
  if (!IsLink(directory.Path(kManual)) && directory.MakeDirectory(kManual)) {
    for (const auto& [name, bytes] : files) {
      if (IsLink(path + name) || IsAsShipped(path + name, bytes)) continue;
      (void)base::ReplaceFile(path + name, bytes);
    }
  }
  return platform::FileAddress(path);
}

}  // namespace services

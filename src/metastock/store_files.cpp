#include "metastock/store_files.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <sys/stat.h>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/text.h"

namespace metastock {
namespace {

using Names = std::unordered_map<std::string, std::string>;

// Read in one go: the package's own files are named in capitals, so that each would be searched
// for. Of names that differ in case only the first in byte order stands.
Names NamesIn(const std::string& directory) {
  Names names;
  std::error_code failed;
  std::filesystem::directory_iterator entry(directory, failed);
  for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed)) {
    const std::string name = entry->path().filename().string();
    const auto [known, fresh] = names.try_emplace(base::UpperAnsi(name), name);
    if (!fresh && name < known->second) known->second = name;
  }
  return names;
}

// A file that isn't there yet will be made a regular one.
bool RegularOrMissing(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? S_ISREG(status.st_mode) : errno == ENOENT;
}

bool Exists(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

std::string FileIn(const std::string& directory, const Names& names, const std::string& name) {
  std::string path = directory + "/" + name;
  const auto other = names.find(base::UpperAnsi(name));
  if (other != names.end() && !Exists(path)) path = directory + "/" + other->second;
  return RegularOrMissing(path) ? path : std::string();
}

}  // namespace

std::string DirectoryOf(const base::FixedText<50>& text, Cut cut) {
  // A text that fills its record ends there.
  const std::string_view bytes = base::TrimEnd(text.bytes());
  std::string_view path = bytes.substr(0, bytes.find(cut == Cut::single_blank ? " " : "  "));
  const bool root = path.find_first_not_of('/') == std::string_view::npos;
  if (root || path.find('\0') != std::string_view::npos) return {};
  return base::AnsiToUtf8(path);
}

const std::string& DataFiles::Path(int number, Cut cut) {
  if (known_ != text_) Forget();
  const bool same = cut == Cut::double_blank || shorter_.path == whole_.path;
  Directory& directory = same ? whole_ : shorter_;
  if (directory.paths.empty() && !directory.path.empty()) directory.names = NamesIn(directory.path);
  const auto [file, fresh] = directory.paths.try_emplace(number);
  if (fresh && !directory.path.empty()) {
    const std::string name = "F" + base::NumberText(std::int64_t{number}) + ".dat";
    file->second = FileIn(directory.path, directory.names, name);
  }
  return file->second;
}

void DataFiles::Forget() {
  known_ = text_;
  shorter_ = {DirectoryOf(text_, Cut::single_blank), {}, {}};
  whole_ = {DirectoryOf(text_, Cut::double_blank), {}, {}};
}

}  // namespace metastock

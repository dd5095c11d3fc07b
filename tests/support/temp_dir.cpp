#include "support/temp_dir.h"

#include <cassert>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdlib.h>

namespace support {

namespace fs = std::filesystem;

TempDir::TempDir() : path_((fs::temp_directory_path() / "cotirama-XXXXXX").string()) {
  // A failure must not leave a path that the destructor would remove.
  if (::mkdtemp(path_.data()) == nullptr) path_.clear();
  assert(!path_.empty());
}

TempDir::~TempDir() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove_all(path_, ignored);
}

std::string TempDir::Path(std::string_view name) const { return (fs::path(path_) / name).string(); }

bool TempDir::Has(std::string_view name) const {
  std::error_code ignored;
  return fs::exists(Path(name), ignored);
}

std::string TempDir::Read(std::string_view name) const {
  std::ifstream in(Path(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void TempDir::Write(std::string_view name, std::string_view bytes) const {
  const fs::path path = Path(name);
  std::error_code ignored;
  fs::create_directories(path.parent_path(), ignored);
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace support

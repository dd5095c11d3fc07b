#pragma once

#include <string>
#include <string_view>

namespace support {

/// An empty directory of its own, removed with all it holds at the end. Names are relative to it;
/// links are removed, never followed.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::string Path(std::string_view name) const;
  [[nodiscard]] bool Has(std::string_view name) const;
  /// "" when there is no such file.
  [[nodiscard]] std::string Read(std::string_view name) const;
  /// Makes missing directories on the way.
  void Write(std::string_view name, std::string_view bytes) const;

 private:
  std::string path_;
};

}  // namespace support

#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace base {

/// The directory that holds every file of the program. A name stands for the file of just that
/// name, else for one whose name differs from it only in case, else for a file still to be made.
/// Names are our own constants, never outside text. `Path` may read the directory: for start-up and
/// saving, not for the road of a quote.
class ProgramDir {
 public:
  explicit ProgramDir(std::string path) : path_(std::move(path)) {}

  [[nodiscard]] const std::string& path() const { return path_; }
  /// Full path of `name` ("MC.POS", "Ticks").
  [[nodiscard]] std::string Path(std::string_view name) const;

  /// Makes the directory `name` if it is missing. False when it neither exists nor can be made.
  bool MakeDirectory(std::string_view name) const;
  /// Removes the regular files and links directly inside the directory `name`. A link in the place
  /// of the directory itself is left alone; nothing is followed, nothing below is touched.
  void EmptyDirectory(std::string_view name) const;

 private:
  std::string path_;
};

}  // namespace base

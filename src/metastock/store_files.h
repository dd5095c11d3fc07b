#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "base/fixed_text.h"

namespace metastock {

/// Where the text of a directory ends: at its first blank, or at the first two together. The
/// routines differ in it, and so do their files where a path holds a blank.
enum class Cut { single_blank, double_blank };

/// The directory as UTF-8, up to the cut; "" for none, for the root, and for one with a NUL in it.
[[nodiscard]] std::string DirectoryOf(const base::FixedText<50>& text, Cut cut);

/// Paths of the data files of one store, looked up once each, whatever the case of the names that
/// are there. `text`, its directory, outlives it; a changed one is noticed.
class DataFiles {
 public:
  explicit DataFiles(const base::FixedText<50>& text) : text_(text) {}

  /// Full path of file `number`; "" without a directory, and for what is there but no regular file.
  /// Good until the directory changes or everything is forgotten.
  [[nodiscard]] const std::string& Path(int number, Cut cut);
  /// Looks everything up anew.
  void Forget();

 private:
  struct Directory {
    std::string path;
    std::unordered_map<std::string, std::string> names;  // of files, by capitals
    std::unordered_map<int, std::string> paths;          // by number
  };

  const base::FixedText<50>& text_;
  base::FixedText<50> known_;  // whose paths these are
  Directory shorter_, whole_;  // by cut; the whole one alone where both are the same
};

}  // namespace metastock

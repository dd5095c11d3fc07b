#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

#include "platform/control.h"

namespace platform {

/// Lines of plain text that only grow at the end and that the user can read and copy, at most
/// kMaxLines: then the first ones go. The caret stands at the end after each change.
class TextLog : public Control {
 public:
  static constexpr std::size_t kMaxLines = 5000;
  static constexpr std::size_t kMaxLine = 2000;  // characters; the rest of a line is left out

  [[nodiscard]] const std::deque<std::string>& lines() const { return lines_; }
  /// Lines that have been there, those that are gone included: the number of the one after the
  /// last.
  [[nodiscard]] std::size_t end() const { return end_; }
  void AddLine(std::string_view utf8);

 private:
  std::deque<std::string> lines_;
  std::size_t end_ = 0;
};

}  // namespace platform

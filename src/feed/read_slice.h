#pragma once

#include <cstddef>
#include <string_view>

namespace feed {

/// Decides how many of the pending bytes a data event takes. Up to 8192 are taken at once. A
/// backlog is cut behind whole frames and messages, few enough for the limits of the codec, so that
/// it loses and repeats nothing, until all of it has been taken.
class ReadSlicer {
 public:
  static constexpr std::size_t kMaxRead = 8192;

  /// `cola` is what the codec puts before the bytes. 1 to pending.size(); 0 when nothing is
  /// pending.
  [[nodiscard]] std::size_t Next(std::string_view cola, std::string_view pending);

 private:
  bool backlog_ = false;
};

}  // namespace feed

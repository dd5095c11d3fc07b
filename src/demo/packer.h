#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "demo/random.h"

namespace demo {

// The forms in which a message may travel. Each is appended to `out`.
namespace envelope {

inline constexpr std::string_view kHead{"\0AZ[", 4};
inline constexpr std::string_view kEnd = "\xFF\xFE";

/// Message with the terminator. Fits only what FitsPlain() says.
void AppendPlain(std::string& out, std::string_view message);
/// No terminator or head inside, no 0 in front.
[[nodiscard]] bool FitsPlain(std::string_view message);
/// Head, length, payload. Fits any payload that isn't empty.
void AppendFrame(std::string& out, std::string_view payload);
/// Frames in a row, to be the payload of one frame. Fits messages in which no head stands: a
/// terminal looks for the next frame from inside the one before.
[[nodiscard]] std::string Chain(std::span<const std::string> messages);
[[nodiscard]] bool FitsChain(std::string_view message);

}  // namespace envelope

/// Chooses a form for each message, so that over a while all of them occur: plain, framed,
/// compressed, and several chained in one frame, compressed as a whole or one by one. A terminal
/// takes the plain messages of a read after its frames, so only what may come late goes plain; the
/// order of all others stays. No frame is longer than 8192 bytes, if no message is.
class Packer {
 public:
  explicit Packer(std::uint32_t seed) : random_(seed, 6) {}

  // All append to `out`.
  void Pack(std::span<const std::string> messages, std::string& out);
  /// Always compressed: for long messages that shrink well.
  void PackSmall(std::span<const std::string> messages, std::string& out);
  /// Mostly plain: for short messages that stand alone.
  void PackShort(std::string_view message, std::string& out);

 private:
  void PackOne(const std::string& message, bool may_compress, std::string& out);
  [[nodiscard]] std::string ChainSmall(std::span<const std::string> messages);

  Random random_;
};

}  // namespace demo

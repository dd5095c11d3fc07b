#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

// What delimits messages on the wire.
namespace feed {

/// The first four bytes of a frame; decimal payload length, "]" and payload follow.
inline constexpr std::string_view kCabezaTrama("\0AZ[", 4);
/// The end of a plain message, in both directions.
inline constexpr std::string_view kTerminador("\xFF\xFE", 2);
/// Read and carry beyond this are dropped.
inline constexpr std::size_t kMaxTrabajo = 30000;

struct FrameLength {
  std::size_t payload = 0;    // offset of the payload
  std::int64_t longitud = 0;  // 0 when unreadable; may be negative
};

/// Reads what follows a head. Nothing where the "]" is missing.
[[nodiscard]] std::optional<FrameLength> ReadFrameLength(std::string_view after_head);

}  // namespace feed

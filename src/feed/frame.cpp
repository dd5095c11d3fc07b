#include "feed/frame.h"

#include "base/val.h"

namespace feed {

std::optional<FrameLength> ReadFrameLength(std::string_view after_head) {
  const std::size_t cierre = after_head.find(']');
  if (cierre == std::string_view::npos) return std::nullopt;
  const auto longitud = base::ValInteger<std::int64_t>(after_head.substr(0, cierre));
  return FrameLength{cierre + 1, longitud.value_or(0)};
}

}  // namespace feed

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

/// Whether `text` begins with "MQ", the mark of a compressed one.
[[nodiscard]] bool IsCompressed(std::string_view text);

/// Expands "MQ" followed by one zlib stream. `out` may share its bytes with nothing of `in`.
/// Without "MQ", with a broken or unfinished stream, or when the result would pass `limit` bytes it
/// returns false and leaves `out` as it was. Bytes after the end of the stream are ignored.
[[nodiscard]] bool Expand(std::string_view in, std::string& out, std::size_t limit);

/// "MQ" and the zlib stream of `in`: the other direction, as a server sends it.
[[nodiscard]] std::string Compress(std::string_view in);

}  // namespace base

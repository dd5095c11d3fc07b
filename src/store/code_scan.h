#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace store {

/// A code without the blanks at its ends, packed so that two codes are the same exactly when their
/// keys are.
using CodeKey = std::uint64_t;

/// Key of no code: what doesn't fit into seven bytes.
inline constexpr CodeKey kNoCode = ~CodeKey{0};

[[nodiscard]] CodeKey PackCode(std::string_view code);

/// Keys are scanned in blocks of so many.
inline constexpr int kCodeBlock = 16;

/// Index of the first of `keys` that is `key`, or -1. `keys` must be whole blocks.
[[nodiscard]] int FindCode(std::span<const CodeKey> keys, CodeKey key);
/// The same without what only some processors can do.
[[nodiscard]] int FindCodePortable(std::span<const CodeKey> keys, CodeKey key);

}  // namespace store

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/bytes.h"

// Builders of wire and file records: fields joined with "+".
namespace support {

template <typename T>
[[nodiscard]] std::string Field(T value) {
  std::string out;
  base::AppendField(out, value);
  return out;
}

[[nodiscard]] inline std::string F32(float value) { return Field(value); }
[[nodiscard]] inline std::string F64(double value) { return Field(value); }
[[nodiscard]] inline std::string I16(std::int16_t value) { return Field(value); }
[[nodiscard]] inline std::string I32(std::int32_t value) { return Field(value); }

/// `text` with blanks up to `size` bytes, or cut there.
[[nodiscard]] inline std::string Pad(std::string_view text, std::size_t size) {
  std::string out(text.substr(0, size));
  out.resize(size, ' ');
  return out;
}

}  // namespace support

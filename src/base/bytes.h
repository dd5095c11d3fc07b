#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

// Little-endian fields of wire and file records, by byte offset. No struct is laid onto bytes.
namespace base {

static_assert(std::endian::native == std::endian::little);

/// Field of `bytes` at the 0-based `offset`. Where even one byte of it is missing `target` keeps
/// its value and false is returned.
template <typename T>
requires std::integral<T> || std::floating_point<T>
[[nodiscard]] bool ReadField(std::string_view bytes, std::size_t offset, T& target) {
  if (offset > bytes.size() || bytes.size() - offset < sizeof(T)) return false;
  std::memcpy(&target, bytes.data() + offset, sizeof(T));
  return true;
}

/// The same, and 0 where even one byte of it is missing.
template <typename T>
[[nodiscard]] T FieldAt(std::string_view bytes, std::size_t offset) {
  T value{};
  (void)ReadField(bytes, offset, value);
  return value;
}

/// Text field of `count` bytes at `offset`: what is there of it.
[[nodiscard]] constexpr std::string_view TextField(std::string_view bytes, std::size_t offset,
                                                   std::size_t count) {
  return offset > bytes.size() ? std::string_view{} : bytes.substr(offset, count);
}

template <typename T>
requires std::integral<T> || std::floating_point<T>
void AppendField(std::string& out, T value) {
  char raw[sizeof(T)];
  std::memcpy(raw, &value, sizeof(T));
  out.append(raw, sizeof(T));
}

/// Puts `bytes` at the 0-based `offset`, over what is there. `out` grows as far as needed, by zero
/// bytes.
inline void PutBytes(std::string& out, std::size_t offset, std::string_view bytes) {
  if (out.size() < offset + bytes.size()) out.resize(offset + bytes.size());
  out.replace(offset, bytes.size(), bytes);
}

}  // namespace base

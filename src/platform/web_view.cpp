#include "platform/web_view.h"

#include <algorithm>

namespace platform {
namespace {

constexpr bool IsPlain(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' ||
         c == '.' || c == '_';
}

// Nothing that could lead out of a directory, or to what is hidden there, in whatever writing.
bool IsFileName(std::string_view name) {
  return !name.empty() && name.front() != '.' && std::ranges::all_of(name, IsPlain);
}

}  // namespace

std::string FileAddress(std::string_view path) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string address = "file://";
  for (const char c : path) {
    if (IsPlain(c) || c == '/') {
      address += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    address += {'%', kDigits[byte >> 4U], kDigits[byte & 15U]};
  }
  return address;
}

void WebView::Navigate(std::string_view address) {
  if (!Allows(address)) return;
  address_ = address;
  if (do_navigate) do_navigate(address_);
}

bool WebView::Allows(std::string_view address) const {
  if (address.starts_with("http://") || address.starts_with("https://")) return true;
  if (files_.empty() || !address.starts_with(files_)) return false;
  address.remove_prefix(files_.size());
  return IsFileName(address.substr(0, address.find_first_of("?#")));
}

void WebView::Tell(bool busy, std::string_view location_name, std::string_view location) {
  Set(busy_, busy);
  location_name_ = location_name;
  location_ = location;
  if (on_busy) on_busy();
}

}  // namespace platform

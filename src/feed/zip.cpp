#include "feed/zip.h"

#include <algorithm>
#include <utility>

#include "base/inflate.h"

namespace feed {
namespace {

constexpr std::size_t kBestRatio = 1032;  // no zlib stream expands further
constexpr std::size_t kLeastCost = 1024;  // of a call, however short its text

}  // namespace

bool Zip::Expandir(std::string_view entrada, std::string& salida) {
  const std::size_t limit = std::min(kPerCall, left_);
  if (limit == 0 || !base::IsCompressed(entrada)) return false;
  std::string expanded;
  const bool done = base::Expand(entrada, expanded, limit);
  const std::size_t cost = done ? expanded.size() : entrada.size() * kBestRatio;
  left_ -= std::min(limit, std::max(cost, kLeastCost));
  if (done) salida = std::move(expanded);
  return done;
}

}  // namespace feed

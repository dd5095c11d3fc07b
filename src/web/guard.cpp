#include "web/guard.h"

#include <algorithm>
#include <array>

namespace web {

bool AllowsPart(const Allows& allows, const QUrl& page, const QUrl& part) {
  if (page.isLocalFile()) return part.isLocalFile() && allows(part);
  static constexpr std::array kSchemes{"http", "https", "ws", "wss", "data", "blob", "about"};
  return std::ranges::any_of(
      kSchemes, [&part](const char* scheme) { return part.scheme() == QLatin1String(scheme); });
}

void Guard::interceptRequest(QWebEngineUrlRequestInfo& request) {
  const QUrl address = request.requestUrl();
  const bool whole = request.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame;
  const bool allowed =
      whole ? allows_(address) : AllowsPart(allows_, request.firstPartyUrl(), address);
  if (!allowed) request.block(true);
}

}  // namespace web

#pragma once

#include <functional>

#include <QWebEngineUrlRequestInterceptor>

namespace web {

/// Whether a page may be at an address.
using Allows = std::function<bool(const QUrl& address)>;

/// Whether a page at `page` may have `part` in it: of a file only what may be a page as well and
/// is a file too, of any other page everything but files and what is the view's own.
[[nodiscard]] bool AllowsPart(const Allows& allows, const QUrl& page, const QUrl& part);

/// Stops every request of a page that isn't allowed.
class Guard : public QWebEngineUrlRequestInterceptor {
 public:
  explicit Guard(Allows allows) : allows_(std::move(allows)) {}
  void interceptRequest(QWebEngineUrlRequestInfo& request) override;

 private:
  Allows allows_;
};

}  // namespace web

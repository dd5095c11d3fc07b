#pragma once

#include <functional>

#include <QString>
#include <QUrl>
#include <QtPlugin>

class QWidget;

namespace qt {

/// What a web view asks and tells; none is empty, and each may be called until the view is gone.
struct WebHooks {
  /// Whether a page may be at `address`, of whatever scheme.
  std::function<bool(const QUrl& address)> allows;
  std::function<void(bool busy, const QString& title, const QUrl& location)> tell;
  /// The process that shows the page has ended by itself. The next navigation starts another.
  std::function<void()> failed;
};

/// A web view of the parent's, which must be there for what is asked of it.
struct WebScreen {
  QWidget* widget = nullptr;
  std::function<void(const QUrl& address)> navigate;
  std::function<void()> back, forward, refresh, stop;
};

/// What the plugin "cotirama-web.so" offers.
class WebPlugin {
 public:
  virtual ~WebPlugin() = default;
  [[nodiscard]] virtual WebScreen Make(const WebHooks& hooks, QWidget& parent) = 0;
};

}  // namespace qt

Q_DECLARE_INTERFACE(qt::WebPlugin, "cotirama.WebPlugin/1")

#pragma once

#include <QThread>
#include <QtGlobal>

#include "demo/feed_options.h"
#include "qt/ports/qt_socket.h"

namespace qt {

class MarketServer;

/// The market inside the program, on a thread of its own that starts when it is first asked for and
/// is joined at the end. It is reached only through TCP.
class EmbeddedMarket {
 public:
  explicit EmbeddedMarket(const demo::FeedOptions& options) : options_(options) {}
  ~EmbeddedMarket();
  EmbeddedMarket(const EmbeddedMarket&) = delete;
  EmbeddedMarket& operator=(const EmbeddedMarket&) = delete;

  /// Its port on 127.0.0.1; 0 while it can't be reached.
  [[nodiscard]] quint16 Port();
  /// The one of its history.
  [[nodiscard]] quint16 DataPort();

 private:
  [[nodiscard]] MarketServer& Server();
  const demo::FeedOptions options_;
  QThread thread_;
  MarketServer* server_ = nullptr;  // lives on the thread and ends with it
  quint16 port_ = 0, data_port_ = 0;
};

/// Finds the reserved name at `market`, which outlives the resolver, its history where a terminal
/// looks for that, and any other host where it says that it is.
[[nodiscard]] Resolver ResolverWith(EmbeddedMarket& market);

}  // namespace qt

#include "qt/demo/embedded_market.h"

#include "feed/conecta.h"
#include "qt/demo/market_server.h"

namespace qt {

EmbeddedMarket::~EmbeddedMarket() {
  thread_.quit();
  thread_.wait();
}

quint16 EmbeddedMarket::Port() {
  if (port_ != 0) return port_;
  if (!server_) {
    server_ = new MarketServer(options_);
    server_->moveToThread(&thread_);
    QObject::connect(&thread_, &QThread::finished, server_, &QObject::deleteLater);
    thread_.setObjectName(QStringLiteral("mercado"));
    thread_.start();
  }
  QMetaObject::invokeMethod(
      server_, [this] { port_ = server_->Listen(0); }, Qt::BlockingQueuedConnection);
  return port_;
}

Resolver ResolverWith(EmbeddedMarket& market) {
  return [&market](const std::string& host, std::uint16_t port) {
    if (host == feed::Conecta::kServidorPropio) {
      return Endpoint{QStringLiteral("127.0.0.1"), market.Port()};
    }
    return Endpoint{QString::fromStdString(host), port};
  };
}

}  // namespace qt

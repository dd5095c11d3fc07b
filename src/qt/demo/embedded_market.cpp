#include "qt/demo/embedded_market.h"

#include "feed/conecta.h"
#include "qt/demo/market_server.h"

namespace qt {

EmbeddedMarket::~EmbeddedMarket() {
  thread_.quit();
  thread_.wait();
}

MarketServer& EmbeddedMarket::Server() {
  if (!server_) {
    server_ = new MarketServer(options_);
    server_->moveToThread(&thread_);
    QObject::connect(&thread_, &QThread::finished, server_, &QObject::deleteLater);
    thread_.setObjectName(QStringLiteral("mercado"));
    thread_.start();
  }
  return *server_;
}

quint16 EmbeddedMarket::Port() {
  if (port_ == 0) {
    QMetaObject::invokeMethod(
        &Server(), [this] { port_ = server_->Listen(0); }, Qt::BlockingQueuedConnection);
  }
  return port_;
}

quint16 EmbeddedMarket::DataPort() {
  if (data_port_ == 0) {
    QMetaObject::invokeMethod(
        &Server(), [this] { data_port_ = server_->ListenData(0); }, Qt::BlockingQueuedConnection);
  }
  return data_port_;
}

Resolver ResolverWith(EmbeddedMarket& market) {
  return [&market](const std::string& host, std::uint16_t port) {
    if (host == feed::Conecta::kServidorPropio) {
      return Endpoint{QStringLiteral("127.0.0.1"),
                      port == feed::Conecta::kDataPort ? market.DataPort() : market.Port()};
    }
    return Endpoint{QString::fromStdString(host), port};
  };
}

}  // namespace qt

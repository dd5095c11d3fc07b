#include "qt/demo/market_server.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <QHostAddress>

namespace qt {
namespace {

constexpr int kTickMs = 50;
constexpr qint64 kLongestTickMs = 1000;  // a machine that slept doesn't make up for it
constexpr qint64 kMostUnsent = 1 << 20;
constexpr qint64 kReadBuffer = 64 * 1024;
constexpr int kMostTerminals = 64;

}  // namespace

MarketServer::MarketServer(const demo::FeedOptions& options, int head_start_ms)
    : feed_(options), head_start_ms_(head_start_ms), data_(feed_.market(), options.seed, this) {
  tick_.setTimerType(Qt::PreciseTimer);
  connect(&server_, &QTcpServer::newConnection, this, &MarketServer::Accept);
  connect(&tick_, &QTimer::timeout, this, &MarketServer::Tick);
}

MarketServer::~MarketServer() {
  for (const auto& [socket, terminal] : terminals_) socket->disconnect(this);
}

quint16 MarketServer::Listen(quint16 port) {
  return server_.listen(QHostAddress::LocalHost, port) ? server_.serverPort() : quint16{0};
}

void MarketServer::Accept() {
  while (QTcpSocket* socket = server_.nextPendingConnection()) {
    if (terminals_.size() < kMostTerminals) {
      Admit(*socket);
    } else {
      socket->abort();
      socket->deleteLater();
    }
  }
}

void MarketServer::Admit(QTcpSocket& socket) {
  socket.setReadBufferSize(kReadBuffer);
  socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
  const Terminal& terminal = terminals_[&socket] = {.id = feed_.Connect()};
  connect(&socket, &QTcpSocket::readyRead, this, [this, &socket] { Receive(socket); });
  connect(&socket, &QTcpSocket::bytesWritten, this, [this, &socket, &terminal](qint64 bytes) {
    bytes_sent_ += bytes;
    Flush(socket, terminal, kMostUnsent);
  });
  connect(&socket, &QTcpSocket::errorOccurred, this, [this, &socket] { Leave(socket); });
  if (!tick_.isActive()) {
    running_.start();
    ticked_at_ = 0;
    tick_.start(kTickMs);
  }
  // It may have come and gone before it was looked at.
  if (socket.state() != QAbstractSocket::ConnectedState) Leave(socket);
}

void MarketServer::Leave(QTcpSocket& socket) {
  const auto terminal = terminals_.find(&socket);
  if (terminal == terminals_.end()) return;
  feed_.Disconnect(terminal->second.id);
  terminals_.erase(terminal);
  socket.disconnect(this);
  socket.abort();
  socket.deleteLater();
  if (terminals_.empty()) tick_.stop();
}

void MarketServer::Receive(QTcpSocket& socket) {
  Terminal& terminal = terminals_.at(&socket);
  const QByteArray bytes = socket.readAll();
  feed_.Receive(terminal.id, {bytes.data(), static_cast<std::size_t>(bytes.size())});
  GiveHeadStart(socket, terminal);
  Flush(socket, terminal, kMostUnsent);
}

void MarketServer::GiveHeadStart(QTcpSocket& socket, Terminal& terminal) {
  if (std::exchange(terminal.head_started, true)) return;
  for (int passed = 0; passed < head_start_ms_; passed += kTickMs) {
    feed_.Advance(kTickMs);
    Flush(socket, terminal, std::numeric_limits<qint64>::max());
  }
}

void MarketServer::Tick() {
  // Against one start, so that what is less than a millisecond isn't lost each time.
  const qint64 now = running_.elapsed();
  feed_.Advance(static_cast<int>(std::min(now - std::exchange(ticked_at_, now), kLongestTickMs)));
  for (const auto& [socket, terminal] : terminals_) Flush(*socket, terminal, kMostUnsent);
}

void MarketServer::Flush(QTcpSocket& socket, const Terminal& terminal, qint64 most_unsent) {
  while (socket.bytesToWrite() < most_unsent && feed_.HasOutput(terminal.id)) {
    const std::string bytes = feed_.TakeOutput(terminal.id);
    if (bytes.empty() || socket.write(bytes.data(), static_cast<qint64>(bytes.size())) < 0) return;
  }
}

}  // namespace qt

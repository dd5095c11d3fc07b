#include "qt/demo/data_server.h"

#include <optional>
#include <string>
#include <vector>

#include <QHostAddress>

namespace qt {
namespace {

constexpr int kPauseMs = 50;  // a terminal loses the second one of two replies in one read
constexpr qint64 kReadBuffer = 16 * 1024;
constexpr std::size_t kMostChannels = 16;

}  // namespace

DataServer::DataServer(const demo::Market& market, std::uint32_t seed, QObject* parent)
    : QObject(parent), history_(market, seed) {
  tick_.setInterval(kPauseMs);
  connect(&server_, &QTcpServer::newConnection, this, &DataServer::Accept);
  connect(&tick_, &QTimer::timeout, this, &DataServer::Tick);
}

DataServer::~DataServer() {
  for (const auto& [socket, channel] : channels_) socket->disconnect(this);
}

quint16 DataServer::Listen(quint16 port) {
  return server_.listen(QHostAddress::LocalHost, port) ? server_.serverPort() : quint16{0};
}

void DataServer::Accept() {
  while (QTcpSocket* socket = server_.nextPendingConnection()) {
    if (channels_.size() < kMostChannels) {
      Admit(*socket);
    } else {
      socket->abort();
      socket->deleteLater();
    }
  }
}

void DataServer::Admit(QTcpSocket& socket) {
  socket.setReadBufferSize(kReadBuffer);
  socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
  channels_.try_emplace(&socket, history_, outages_);
  connect(&socket, &QTcpSocket::readyRead, this, [this, &socket] { Receive(socket); });
  connect(&socket, &QTcpSocket::disconnected, this, [this, &socket] { Leave(socket); });
  connect(&socket, &QTcpSocket::errorOccurred, this, [this, &socket] { Leave(socket); });
  // It may have come and gone before it was looked at.
  if (socket.state() != QAbstractSocket::ConnectedState) return Leave(socket);
  Receive(socket);
}

void DataServer::Leave(QTcpSocket& socket) {
  if (channels_.erase(&socket) == 0) return;
  socket.disconnect(this);
  socket.abort();
  socket.deleteLater();
}

void DataServer::Receive(QTcpSocket& socket) {
  demo::DataChannel& channel = channels_.at(&socket);
  const QByteArray bytes = socket.readAll();
  channel.Receive({bytes.data(), static_cast<std::size_t>(bytes.size())});
  if (!channel.IsAsked() || tick_.isActive()) return;
  tick_.start();
  Answer(socket, channel);
}

void DataServer::Tick() {
  std::vector<QTcpSocket*> asking;
  for (const auto& [socket, channel] : channels_) {
    if (channel.IsAsked()) asking.push_back(socket);
  }
  if (asking.empty()) tick_.stop();
  for (QTcpSocket* socket : asking) Answer(*socket, channels_.at(socket));
}

void DataServer::Answer(QTcpSocket& socket, demo::DataChannel& channel) {
  if (socket.bytesToWrite() > 0) return;
  if (const std::optional<std::string> answer = channel.Answer()) {
    socket.write(answer->data(), static_cast<qint64>(answer->size()));
  } else {
    socket.disconnectFromHost();
  }
}

}  // namespace qt

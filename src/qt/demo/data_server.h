#pragma once

#include <cstdint>
#include <map>

#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include "demo/data_channel.h"
#include "demo/history.h"

namespace qt {

/// The embedded market's history on TCP, on this machine only. Each terminal gets an answer at a
/// time, at most twenty a second, and none before it has taken the last one. Nothing runs while
/// nobody has asked. The market outlives it and lives on its thread, whose event loop it needs.
class DataServer : public QObject {
 public:
  DataServer(const demo::Market& market, std::uint32_t seed, QObject* parent);
  ~DataServer() override;

  /// Listens on that port, or on any free one for 0. Returns the port, or 0 on failure.
  [[nodiscard]] quint16 Listen(quint16 port);

 private:
  void Accept();
  void Admit(QTcpSocket& socket);
  void Receive(QTcpSocket& socket);
  void Leave(QTcpSocket& socket);
  void Tick();
  void Answer(QTcpSocket& socket, demo::DataChannel& channel);

  const demo::History history_;
  demo::Outages outages_;
  QTcpServer server_{this};
  QTimer tick_{this};
  std::map<QTcpSocket*, demo::DataChannel> channels_;
};

}  // namespace qt

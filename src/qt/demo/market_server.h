#pragma once

#include <map>

#include <QElapsedTimer>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include "demo/feed.h"
#include "qt/demo/data_server.h"

namespace qt {

/// The embedded market on TCP, on this machine only. Market time runs with the clock while a
/// terminal is connected, and stands still otherwise. A terminal that doesn't read holds up nobody
/// but itself. Its history is served beside it. Needs the event loop of its thread.
class MarketServer : public QObject {
 public:
  /// Each new terminal finds `head_start_ms` of market time waiting, sent without regard to whether
  /// it reads; the time passes for all.
  explicit MarketServer(const demo::FeedOptions& options, int head_start_ms = 0);
  ~MarketServer() override;

  /// Listens on that port, or on any free one for 0. Returns the port, or 0 on failure.
  [[nodiscard]] quint16 Listen(quint16 port);
  /// The same for the history.
  [[nodiscard]] quint16 ListenData(quint16 port) { return data_.Listen(port); }
  [[nodiscard]] int terminals() const { return static_cast<int>(terminals_.size()); }
  /// Since the start, to all terminals.
  [[nodiscard]] qint64 bytes_sent() const { return bytes_sent_; }

 private:
  struct Terminal {
    int id;  // in the feed
    bool head_started = false;
  };

  void Accept();
  void Admit(QTcpSocket& socket);
  void Receive(QTcpSocket& socket);
  void Leave(QTcpSocket& socket);
  void Tick();
  void Flush(QTcpSocket& socket, const Terminal& terminal, qint64 most_unsent);
  void GiveHeadStart(QTcpSocket& socket, Terminal& terminal);

  demo::Feed feed_;
  const int head_start_ms_;
  // Children, so that they change threads together with the server.
  QTcpServer server_{this};
  QTimer tick_{this};
  DataServer data_;
  QElapsedTimer running_;  // since the first terminal came
  qint64 ticked_at_ = 0;
  std::map<QTcpSocket*, Terminal> terminals_;
  qint64 bytes_sent_ = 0;
};

}  // namespace qt

#include "qt/ports/qt_socket.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/socket.h>
#include <vector>

#include <QEventLoop>
#include <QHostAddress>
#include <QTcpServer>

#include "../wait.h"

namespace {

using State = platform::Socket::State;
using support::Settle;
using support::WaitFor;

/// A socket, its peer and a log of its events.
class QtSocketTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    socket.set_remote_host("127.0.0.1");
    socket.set_remote_port(server.serverPort());
  }
  void ConnectBoth() {
    ASSERT_TRUE(socket.Connect());
    ASSERT_TRUE(WaitFor([&] { return server.hasPendingConnections(); }));
    peer.reset(server.nextPendingConnection());
    ASSERT_TRUE(WaitFor([&] { return socket.state() == State::connected; }));
  }
  void PeerWrites(const std::string& bytes) {
    peer->write(bytes.data(), static_cast<qint64>(bytes.size()));
    peer->flush();
  }
  void ReadAll() { received += socket.Read(socket.pending().size()); }

  QTcpServer server;
  std::unique_ptr<QTcpSocket> peer;
  std::vector<std::string> log;
  std::string received;
  std::function<void()> on_data = [this] { ReadAll(); };
  qt::Resolver resolve;
  qt::QtSocket socket{{.connected = [this] { log.emplace_back("connected"); },
                       .data = [this] { on_data(); },
                       .closed = [this] { log.push_back("closed after " + received); },
                       .error = [this](const std::string& text) { log.push_back(text); }},
                      resolve};
};

TEST_F(QtSocketTest, TellsOfTheEndAfterTheLastBytes) {
  ConnectBoth();
  PeerWrites("adios");
  peer->disconnectFromHost();
  ASSERT_TRUE(WaitFor([&] { return log.size() == 2; }));
  EXPECT_EQ(log, (std::vector<std::string>{"connected", "closed after adios"}));
  EXPECT_EQ(socket.state(), State::closed);
  Settle();
  EXPECT_EQ(log.size(), 2U);
}

TEST_F(QtSocketTest, RefusedConnectionIsAnErrorInSpanish) {
  const std::string port = std::to_string(server.serverPort());
  server.close();
  ASSERT_TRUE(socket.Connect());
  ASSERT_TRUE(WaitFor([&] { return !log.empty(); }));
  EXPECT_EQ(log.front(), "Conexión rechazada por el servidor (127.0.0.1:" + port + ").");
  EXPECT_EQ(socket.state(), State::error);
  EXPECT_FALSE(socket.Connect());
  socket.Close();
  EXPECT_TRUE(socket.Connect());
}

TEST_F(QtSocketTest, HostThatCannotExistIsAnError) {
  for (const char* host : {"", "a b", "..", "256.1.1.1.1"}) {
    log.clear();
    socket.Close();
    socket.set_remote_host(host);
    ASSERT_TRUE(socket.Connect());
    ASSERT_TRUE(WaitFor([&] { return !log.empty(); })) << host;
    EXPECT_EQ(socket.state(), State::error) << host;
  }
}

TEST_F(QtSocketTest, ResetAndHalfCloseByThePeerAreAnEndAndNoError) {
  for (const bool reset : {true, false}) {
    log.clear();
    ConnectBoth();
    // The peer reads nothing, so some of it is still on the way when the end comes.
    ASSERT_TRUE(socket.Send(std::string(1 << 20, 'x')));
    Settle();
    const auto descriptor = static_cast<int>(peer->socketDescriptor());
    if (reset) {
      const linger at_once{1, 0};
      ASSERT_EQ(setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once), 0);
      peer->abort();
    } else {
      peer->setReadBufferSize(1);
      ASSERT_EQ(shutdown(descriptor, SHUT_WR), 0);
    }
    ASSERT_TRUE(WaitFor([&] { return log.size() == 2; })) << reset;
    EXPECT_EQ(log.back(), "closed after ") << reset;
  }
}

TEST_F(QtSocketTest, CloseByTheProgramRaisesNothing) {
  ASSERT_TRUE(socket.Connect());
  socket.Close();
  Settle();
  ConnectBoth();
  PeerWrites("tarde");
  socket.Close();
  Settle();
  EXPECT_EQ(log, std::vector<std::string>{"connected"});
  EXPECT_EQ(received, "");
}

TEST_F(QtSocketTest, SingleBytesArriveInOrder) {
  ConnectBoth();
  const std::string sent = "uno a uno";
  for (const char byte : sent) {
    PeerWrites(std::string(1, byte));
    QCoreApplication::processEvents();
  }
  EXPECT_TRUE(WaitFor([&] { return received == sent; }));
}

TEST_F(QtSocketTest, BacklogIsHandedOverWholeWithOtherEventsInBetween) {
  ConnectBoth();
  std::string sent(6U << 20, ' ');
  for (std::size_t i = 0; i < sent.size(); ++i) sent[i] = static_cast<char>(i * 7 / 5);
  int turns = 0, others = 0;
  std::size_t most = 0;
  QObject context;
  std::function<void()> post = [&] {
    ++others;
    if (received.size() < sent.size()) {
      QMetaObject::invokeMethod(&context, post, Qt::QueuedConnection);
    }
  };
  on_data = [&] {
    if (++turns == 1) post();
    most = std::max(most, socket.pending().size());
    received += socket.Read(8192);
    QElapsedTimer work;
    work.start();
    while (work.nsecsElapsed() < 200000) {
    }
  };
  PeerWrites(sent);
  ASSERT_TRUE(WaitFor([&] { return received.size() == sent.size(); }));
  EXPECT_EQ(received, sent);
  EXPECT_GE(others, 10);
  EXPECT_LE(most, std::size_t{3} << 20);
}

TEST_F(QtSocketTest, LittleInHandIsAllThatHasCome) {
  ConnectBoth();
  std::string sent;
  while (sent.size() < 16U << 20) sent += "a message of some length\xFF\xFE";
  int torn = 0;
  on_data = [&] {
    const std::string_view pending = socket.pending();
    const bool whole = pending.size() <= 8192;
    const std::size_t count = whole ? pending.size() : pending.rfind("\xFF\xFE", 8190) + 2;
    received += socket.Read(count);
    torn += received.ends_with("\xFF\xFE") ? 0 : 1;
  };
  PeerWrites(sent);
  ASSERT_TRUE(WaitFor([&] { return received.size() == sent.size(); }));
  // The peer's own writes may end inside a message; the turns of this side never do.
  EXPECT_LE(torn, 3);
}

TEST_F(QtSocketTest, HandlerThatTakesNothingWaitsForMore) {
  ConnectBoth();
  int calls = 0;
  on_data = [&] { ++calls; };
  PeerWrites("a");
  Settle();
  EXPECT_EQ(calls, 1);
  PeerWrites("b");
  peer->disconnectFromHost();
  ASSERT_TRUE(WaitFor([&] { return log.size() == 2; }));
  EXPECT_GE(calls, 2);
}

TEST_F(QtSocketTest, HandlerMayCloseAndConnectAnew) {
  ConnectBoth();
  on_data = [&] {
    socket.Read(1);
    socket.Close();
    EXPECT_EQ(socket.pending(), "");
    on_data = [this] { ReadAll(); };
    EXPECT_TRUE(socket.Connect());
  };
  PeerWrites("rest is lost");
  ASSERT_TRUE(WaitFor([&] { return server.hasPendingConnections(); }));
  peer.reset(server.nextPendingConnection());
  PeerWrites("nuevo");
  EXPECT_TRUE(WaitFor([&] { return received == "nuevo"; }));
  EXPECT_EQ(log, (std::vector<std::string>{"connected", "connected"}));
}

TEST_F(QtSocketTest, NoHandlerRunsWhileOneWaitsInABox) {
  ConnectBoth();
  int depth = 0;
  on_data = [&] {
    ASSERT_EQ(++depth, 1);
    ReadAll();
    if (received == "a") {
      PeerWrites("b");
      peer->disconnectFromHost();
      QEventLoop box;
      QTimer::singleShot(100, &box, &QEventLoop::quit);
      box.exec();
      EXPECT_EQ(received, "a");
      EXPECT_EQ(log.size(), 1U);
      EXPECT_EQ(socket.state(), State::connected);
    }
    --depth;
  };
  PeerWrites("a");
  ASSERT_TRUE(WaitFor([&] { return log.size() == 2; }));
  EXPECT_EQ(log.back(), "closed after ab");
}

TEST_F(QtSocketTest, RefusesToQueueMoreThanAMebibyte) {
  ConnectBoth();
  EXPECT_FALSE(socket.Send(std::string((1 << 20) + 1, 'x')));
  EXPECT_TRUE(socket.Send(std::string(1 << 20, 'y')));
  EXPECT_FALSE(socket.Send("z"));
  std::string arrived;
  ASSERT_TRUE(WaitFor([&] {
    arrived += peer->readAll().toStdString();
    return arrived.size() >= 1U << 20;
  }));
  EXPECT_TRUE(socket.Send("z"));
  EXPECT_TRUE(WaitFor([&] {
    arrived += peer->readAll().toStdString();
    return arrived.back() == 'z';
  }));
  EXPECT_EQ(arrived.find_first_not_of('y'), std::size_t{1} << 20);
}

TEST_F(QtSocketTest, ResolverTellsWhereAReservedNameIs) {
  resolve = [&](const std::string& host, std::uint16_t port) {
    EXPECT_EQ(host, "reservado");
    EXPECT_EQ(port, 23);
    return qt::Endpoint{QStringLiteral("127.0.0.1"), server.serverPort()};
  };
  socket.set_remote_host("reservado");
  socket.set_remote_port(23);
  ConnectBoth();
  EXPECT_EQ(socket.remote_host(), "reservado");
}

}  // namespace

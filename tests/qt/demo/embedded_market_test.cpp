#include "qt/demo/embedded_market.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include <QTcpSocket>

#include "../wait.h"

namespace {

using support::WaitFor;

/// A terminal as the market sees it: bytes out, bytes in.
struct Client {
  explicit Client(quint16 port) {
    socket.connectToHost(QStringLiteral("127.0.0.1"), port);
    QObject::connect(&socket, &QTcpSocket::readyRead, [this] {
      if (reads) received += static_cast<std::size_t>(socket.readAll().size());
    });
  }
  void LogIn() {
    socket.write(
        "ID:quien  .clave  \xFF\xFE"
        "C:Brizna.Continuo\xFF\xFE");
  }

  QTcpSocket socket;
  std::size_t received = 0;
  bool reads = true;
};

TEST(EmbeddedMarket, ServesSeveralTerminalsOnOnePortUntilItEnds) {
  auto market = std::make_unique<qt::EmbeddedMarket>(demo::FeedOptions{});
  const quint16 port = market->Port();
  ASSERT_NE(port, 0);
  EXPECT_EQ(market->Port(), port);
  Client first(port), second(port);
  first.LogIn();
  second.LogIn();
  EXPECT_TRUE(WaitFor([&] { return first.received > 2000 && second.received > 2000; }));
  market.reset();
  EXPECT_TRUE(WaitFor([&] {
    return first.socket.state() == QAbstractSocket::UnconnectedState &&
           second.socket.state() == QAbstractSocket::UnconnectedState;
  }));
}

TEST(EmbeddedMarket, StrangeTerminalsDisturbNobody) {
  qt::EmbeddedMarket market(
      {.quotes_per_second = 20000, .extra_instruments = 4000, .start_second = 10 * 3600});
  Client deaf(market.Port()), mute(market.Port()), rude(market.Port()), good(market.Port());
  deaf.socket.setReadBufferSize(1);
  deaf.reads = false;
  deaf.LogIn();
  rude.socket.write(QByteArray(1 << 20, '\xFF'));
  Client(market.Port()).LogIn();
  good.LogIn();
  EXPECT_TRUE(WaitFor([&] { return good.received > 1'000'000; }));
  EXPECT_EQ(mute.received, 0U);
}

TEST(EmbeddedMarket, OnlyTheReservedNameIsItsOwn) {
  qt::EmbeddedMarket market({});
  const qt::Resolver resolve = qt::ResolverWith(market);
  const qt::Endpoint other = resolve("10.0.0.1", 23);
  EXPECT_EQ(other.host, QStringLiteral("10.0.0.1"));
  EXPECT_EQ(other.port, 23);
  const qt::Endpoint own = resolve("demostracion", 23);
  EXPECT_EQ(own.host, QStringLiteral("127.0.0.1"));
  EXPECT_EQ(own.port, market.Port());
}

}  // namespace

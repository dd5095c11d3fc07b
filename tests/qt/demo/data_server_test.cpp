#include "qt/demo/data_server.h"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

#include <QTcpSocket>

#include "../wait.h"
#include "qt/demo/embedded_market.h"

namespace {

using support::WaitFor;

struct Client {
  explicit Client(quint16 port) {
    socket.connectToHost(QStringLiteral("127.0.0.1"), port);
    QObject::connect(&socket, &QTcpSocket::readyRead, [this] { received += socket.readAll(); });
  }
  void Ask(const char* code, int times = 1) {
    for (; times > 0; --times) {
      socket.write("DATA:" + QByteArray(code) + "1000510:120000\xFF\xFE");
    }
  }
  [[nodiscard]] bool Closed() const { return socket.state() == QAbstractSocket::UnconnectedState; }

  QTcpSocket socket;
  QByteArray received;
};

TEST(DataServer, AnswersOneAtATimeWhoeverElseDoesWhat) {
  qt::EmbeddedMarket market({});
  const qt::Endpoint own = qt::ResolverWith(market)("demostracion", 1999);
  ASSERT_EQ(own.port, market.DataPort());
  ASSERT_NE(own.port, market.Port());
  Client rude(own.port), deaf(own.port), good(own.port);
  rude.socket.write(QByteArray(1 << 20, '\xFE'));
  deaf.socket.setReadBufferSize(1);
  deaf.Ask("BVL    ", 500);
  std::vector<std::unique_ptr<Client>> crowd;
  for (int i = 0; i < 40; ++i) crowd.push_back(std::make_unique<Client>(own.port));
  const QByteArray end("DATA:NADIE   END\xFF\xFE");
  good.Ask("NADIE  ", 3);
  ASSERT_TRUE(WaitFor([&] { return good.received.size() >= end.size(); }));
  EXPECT_LT(good.received.size(), 3 * end.size());
  ASSERT_TRUE(WaitFor([&] { return good.received == end + end + end; }));
  EXPECT_TRUE(WaitFor([&] { return crowd.back()->Closed(); })) << "there is room for a few only";
}

TEST(DataServer, ALineThatIsCutEndsInOrderAndTheNextOneIsAnswered) {
  qt::EmbeddedMarket market({});
  auto client = std::make_unique<Client>(market.DataPort());
  int cuts = 0;
  for (int asked = 0; asked < 20; ++asked) {
    client->received.clear();
    client->Ask("NADIE  ");
    ASSERT_TRUE(WaitFor([&] { return !client->received.isEmpty() || client->Closed(); }));
    if (!client->Closed()) continue;
    ++cuts;
    EXPECT_EQ(client->socket.error(), QAbstractSocket::RemoteHostClosedError);
    client = std::make_unique<Client>(market.DataPort());
  }
  EXPECT_EQ(cuts, 1);
}

}  // namespace

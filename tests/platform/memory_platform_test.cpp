#include "support/memory_platform.h"

#include <gtest/gtest.h>

namespace {

TEST(FakeSocket, SendsOnlyWhileConnectedAndConnectsOnlyFromClosed) {
  support::MemoryPlatform outside;
  const auto socket = outside.MakeSocket({});
  support::FakeSocket& peer = *outside.sockets.at(0);
  EXPECT_FALSE(socket->Send("early"));
  EXPECT_TRUE(socket->Connect() && !socket->Connect());
  peer.Accept();
  EXPECT_TRUE(socket->Send("ab") && socket->Send("c") && !socket->Connect());
  peer.Fail("reset");
  EXPECT_FALSE(socket->Send("late") || socket->Connect());
  socket->Close();
  EXPECT_TRUE(socket->Connect());
  EXPECT_EQ(peer.sent, "abc");
}

}  // namespace

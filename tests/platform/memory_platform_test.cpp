#include "support/memory_platform.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using State = platform::Socket::State;

// A client that logs its events, and what it does at each if told so.
struct Client {
  support::MemoryPlatform outside;
  std::string log;
  std::function<void()> at_data = [this] { log += socket->Read(4) + " "; };
  std::function<void()> at_closed;
  std::unique_ptr<platform::Socket> socket = outside.MakeSocket({
      .connected = [this] { log += "connected "; },
      .data = [this] { at_data(); },
      .closed =
          [this] {
            log += "closed ";
            if (at_closed) at_closed();
          },
      .error = [this](const std::string& text) { log += "error:" + text + " "; },
  });
  support::FakeSocket& peer = *outside.sockets.at(0);

  void Open() {
    ASSERT_TRUE(socket->Connect());
    peer.Accept();
    log.clear();
  }
};

TEST(FakeSocket, RaisesDataUntilAllIsReadOrAHandlerReadsNothing) {
  Client client;
  client.Open();
  client.peer.Arrive("0123456789");
  EXPECT_EQ(client.log, "0123 4567 89 ");
  int calls = 0;
  client.at_data = [&] { ++calls; };
  client.peer.Arrive("ab");
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(client.socket->pending(), "ab");
}

TEST(FakeSocket, RaisesNoEventInsideAHandlerButAfterIt) {
  Client client;
  client.Open();
  client.at_data = [&] {
    client.log += "(";
    (void)client.socket->Read(99);
    client.outside.dialogs().Message("waits");
    client.log += ") ";
  };
  client.outside.boxes.while_open = [&] {
    if (client.outside.boxes.messages.size() > 1) return;
    client.peer.Arrive("second");
    client.peer.PeerClose();
  };
  client.peer.Arrive("first");
  EXPECT_EQ(client.log, "() () closed ");
  EXPECT_EQ(client.socket->state(), State::closed);
}

TEST(FakeSocket, AClosingByTheProgramDropsWhatWaits) {
  Client client;
  client.Open();
  client.at_data = [&] {
    client.log += "data ";
    client.peer.PeerClose();
    client.socket->Close();
    EXPECT_TRUE(client.socket->Connect());
  };
  client.peer.Arrive("x");
  EXPECT_EQ(client.log, "data ");
  EXPECT_EQ(client.socket->state(), State::connecting);
  EXPECT_EQ(client.peer.closes, 1);
  EXPECT_EQ(client.peer.connects, 2);
  EXPECT_TRUE(client.socket->pending().empty());
}

TEST(FakeSocket, SendsOnlyWhileConnectedAndConnectsOnlyFromClosed) {
  Client client;
  EXPECT_FALSE(client.socket->Send("early"));
  client.Open();
  EXPECT_FALSE(client.socket->Connect());
  EXPECT_TRUE(client.socket->Send("ab"));
  EXPECT_TRUE(client.socket->Send("c"));
  EXPECT_EQ(client.peer.sent, "abc");
  EXPECT_EQ(client.peer.writes.size(), 2u);
  client.peer.Fail("reset");
  EXPECT_EQ(client.log, "error:reset ");
  EXPECT_EQ(client.socket->state(), State::error);
  EXPECT_FALSE(client.socket->Connect());
  client.socket->Close();
  EXPECT_TRUE(client.socket->Connect());
  client.socket.reset();
  EXPECT_TRUE(client.outside.sockets.empty());
}

TEST(MemoryPlatform, FiresTimersInOrderOfTheirTimeAndPostedTasksInBetween) {
  support::MemoryPlatform outside;
  std::string log;
  const auto a = outside.MakeTimer([&] {
    log += "a ";
    outside.Post([&] { log += "posted "; });
  });
  const auto b = outside.MakeTimer([&] { log += "b "; });
  b->Start(30);
  a->Start(20);
  outside.Post([&] { log += "first "; });
  EXPECT_EQ(log, "");
  outside.avanzar(60);
  // Both are due at 60: the one that was started first goes first.
  EXPECT_EQ(log, "first a posted b a posted b a posted ");
}

}  // namespace

#include "feed/conecta.h"

#include <gtest/gtest.h>

#include "fixture.h"
#include "support/memory_platform.h"
#include "support/wire.h"

namespace {

using platform::Picture;
using support::Frame;
using support::Pad;
using support::Plain;
using State = platform::Socket::State;
using Texts = std::vector<std::string>;

class ConectaTest : public testing::Test {
 protected:
  ConectaTest() { Load(); }

  void Load() {
    conecta.reset();
    conecta = std::make_unique<feed::Conecta>(outside, directory, market.store, market.pipeline,
                                              market.strip);
    conecta->Load();
  }
  void Type(std::string_view login, std::string_view password, std::string_view server) {
    conecta->Text1.set_text(login);
    conecta->Text2.set_text(password);
    conecta->Text3.set_text(server);
    conecta->Command2.Click();
  }
  void LogIn() {
    Type("usuario", "secreto", "feed.example");
    client().Accept();
    client().writes.clear();
  }
  [[nodiscard]] Texts Fields() const {
    return {conecta->Text3.text(), conecta->Text1.text(), conecta->Text2.text()};
  }
  [[nodiscard]] support::FakeSocket& client() { return *outside.sockets.at(1); }

  support::TempDir dir;
  base::ProgramDir directory{dir.path()};
  support::MemoryPlatform outside;
  Market market;
  std::unique_ptr<feed::Conecta> conecta;
};

TEST_F(ConectaTest, LoadsWhatIsThereOfItsFile) {
  dir.Write("IP.cfg", Pad("server", 15) + Pad("a\t3456789", 15) + "cut");
  Load();
  EXPECT_EQ(Fields(), (Texts{"server", "a 34567", ""}));
}

TEST_F(ConectaTest, TheLoginButtonWritesTheFileWhateverTheFieldsHold) {
  const std::tuple<const char*, const char*, const char*, const char*, State> cases[] = {
      {"ana", "secreto", "feed.example", "feed.example", State::closed},
      {"usuario", "abc", "feed.example", "feed.example", State::closed},
      {"usuario", "secreto", " abcd", "demostracion", State::connecting},
      {"ñañá", "clave", " feed.example", "feed.example", State::connecting},
  };
  for (const auto& [login, password, server, host, state] : cases) {
    conecta->Show();
    Type(login, password, server);
    EXPECT_EQ(client().host, host);
    EXPECT_EQ(client().state(), state);
    EXPECT_EQ(conecta->visible(), state == State::closed);
    conecta->Recargar();
    EXPECT_EQ(Fields().at(0), server);
    EXPECT_EQ(Fields().at(1), login);
  }
  EXPECT_EQ(dir.Read("IP.cfg"), Pad(" feed.example", 15) +
                                    Pad("\xF1"
                                        "a\xF1\xE1",
                                        15) +
                                    Pad("clave", 15));
}

TEST_F(ConectaTest, LogsInWithOneWriteAndAsksForASessionUntilItIsConfirmed) {
  market.Tickctl2.PonerTexto("Pulse ", "", 7, 80, "");
  Type("ana1", " secret", "feed.example");
  client().Accept();
  EXPECT_EQ(outside.sockets.at(0)->host, "feed.example");
  EXPECT_EQ(client().port * 10000 + outside.sockets.at(0)->port, 231999);
  const auto& items = market.Tickctl2.items();
  ASSERT_EQ(items.size(), 3U);
  EXPECT_EQ(items[0].text + items[2].text, "Conectado Cotirama Data Server.");

  outside.avanzar(10000);
  const std::string request = Plain("TRZO:ana1secret  :ana1secret  ");
  EXPECT_EQ(client().writes,
            (Texts{Plain("ID:ana1   .secret ") + Plain("C:Brizna.Continuo"), request, request}));
  client().Arrive(Frame("0000"));
  outside.avanzar(10000);
  EXPECT_EQ(client().writes.size(), 3U);
  client().Arrive(Plain("99,5   "));
  EXPECT_FALSE(conecta->SesionLista());

  // A session that brings nothing is rebuilt on the 22nd tick.
  outside.avanzar(21 * 5000);
  EXPECT_EQ(client().connects, 1);
  outside.avanzar(5000);
  EXPECT_EQ(client().connects, 2);
}

TEST_F(ConectaTest, ComesBackAfterCloseAndError) {
  std::string steps;
  conecta->steps.RefreshMetaStock = [&] { steps += "m"; };
  conecta->steps.ReanudarDescarga = [&] { steps += "d"; };
  conecta->steps.ResumenCartera = [&] { steps += "c"; };
  LogIn();
  outside.avanzar(5000);
  client().PeerClose();
  EXPECT_EQ(market.Picture2.picture(), Picture::closed);
  outside.avanzar(5000);
  EXPECT_EQ(client().state(), State::connecting);
  EXPECT_EQ(steps, "mdcc");

  // While the box is open no timer of the session does anything.
  outside.boxes.while_open = [&] { outside.avanzar(300000); };
  client().Fail("rechazada\n");
  EXPECT_EQ(outside.boxes.messages, Texts{"rechazada "});
  EXPECT_EQ(steps, "mdcc");
  EXPECT_TRUE(conecta->cerrado());
  EXPECT_FALSE(conecta->TickCarteras);
  outside.avanzar(60000);
  EXPECT_EQ(client().connects, 3);
  EXPECT_TRUE(conecta->TickCarteras);
}

TEST_F(ConectaTest, CountsAByteOnceAndDropsNoneHoweverOftenItIsCarriedOver) {
  LogIn();
  client().Arrive(Frame("0000") + Frame("half").substr(0, 8));
  EXPECT_EQ(market.Picture2.picture(), Picture::connected);
  // The carry goes on into the next connection.
  client().PeerClose();
  outside.avanzar(5000);
  client().Accept();
  client().Arrive(Frame("half").substr(8));
  EXPECT_EQ(market.Picture2.tool_tip(), "Bytes transferidos: 20");

  std::string backlog;
  for (int i = 1; i <= 1500; ++i) {
    const std::string code = "X" + std::to_string(i);
    backlog += Frame("99,1   " + support::MasterRecord({.code = code, .name = "N"}));
  }
  client().Arrive(backlog);
  EXPECT_EQ(market.store.NumInstrumentos(), 1500);
  EXPECT_EQ(conecta->BytesTransferidos(), static_cast<int>(20 + backlog.size()));
}

TEST_F(ConectaTest, FollowsARedirectAfterTheReadHandlerAndItsBoxes) {
  LogIn();
  outside.boxes.while_open = [this] {
    outside.RunPosted();
    EXPECT_TRUE(conecta->conectado());
  };
  const std::tuple<std::string, std::string, int> cases[] = {
      {"Internet:feed.example", "feed.example", 1},
      {Plain("Internet:a.example") + "Internet:b.example", "b.example", 2},
      {"Internet:demostracion", "b.example", 2},
      {Plain("Internet:e.example") + "Not:0001", "e.example", 3},
  };
  for (const auto& [redirects, host, connects] : cases) {
    client().Accept();
    client().Arrive(Plain(redirects));
    EXPECT_TRUE(conecta->conectado());
    outside.RunPosted();
    EXPECT_EQ(client().host, host);
    EXPECT_EQ(client().connects, connects);
  }
  // Nothing is followed once the session or the window is gone.
  client().Accept();
  client().Arrive(Plain("Internet:c.example"));
  conecta->Recargar();
  outside.RunPosted();
  EXPECT_EQ(client().connects, 3);
  client().Connect();
  client().Accept();
  client().Arrive(Plain("Internet:d.example"));
  conecta.reset();
  outside.RunPosted();
}

TEST_F(ConectaTest, ABoxOfTheFeedHoldsUpTheFeedAlone) {
  LogIn();
  outside.boxes.while_open = [&] {
    client().Arrive(Plain("0000"));
    EXPECT_FALSE(conecta->SesionLista());
    outside.avanzar(200000);
    EXPECT_TRUE(conecta->conectado());
  };
  client().Arrive(Plain("Not:0001 hola"));
  EXPECT_TRUE(conecta->SesionLista());

  // One event raises no flood of them.
  outside.boxes.while_open = nullptr;
  std::string chain;
  for (int i = 0; i < 60; ++i) chain += Frame("Not:" + std::to_string(1000 + i));
  client().Arrive(Frame(chain));
  EXPECT_EQ(outside.boxes.messages.size(), 1U + 51U);
  EXPECT_EQ(outside.sound().beeps, 2 * (1 + 51));
}

TEST_F(ConectaTest, StaysLoadedUntilTheProgramEnds) {
  LogIn();
  client().Arrive(Plain("0000"));
  conecta->Timer2.set_interval(10000);
  conecta->Recargar();
  EXPECT_TRUE(conecta->SesionLista());
  EXPECT_EQ(conecta->Timer2.interval(), 60000);
  outside.avanzar(60000);
  EXPECT_TRUE(conecta->cerrado());

  conecta->Show();
  conecta->UserClose();
  EXPECT_FALSE(conecta->visible());
  EXPECT_TRUE(conecta->loaded());
  conecta->Cerrar();
  EXPECT_TRUE(conecta->Unload());
}

}  // namespace

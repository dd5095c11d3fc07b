#include "feed/conecta.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

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
  [[nodiscard]] support::FakeSocket& client() { return *outside.sockets.at(0); }

  support::TempDir dir;
  base::ProgramDir directory{dir.path()};
  support::MemoryPlatform outside;
  Market market;
  std::unique_ptr<feed::Conecta> conecta;
};

TEST_F(ConectaTest, LoadsItsFieldsFromTheFile) {
  struct Case {
    std::string file, login, password, server;
  };
  const Case cases[] = {
      {"", "", "", ""},
      {Pad("10.0.0.1", 15) + Pad("a\xF1o", 15) + Pad(" x", 15), "año", " x", "10.0.0.1"},
      {Pad("server", 15) + Pad("123456789", 15) + "cut", "1234567", "", "server"},
      {Pad("", 15) + Pad("a\tb", 15) + std::string(15, '\0'), "a b", "", ""},
  };
  for (const Case& test : cases) {
    dir.Write("IP.cfg", test.file);
    Load();
    EXPECT_EQ(conecta->Text1.text(), test.login);
    EXPECT_EQ(conecta->Text2.text(), test.password);
    EXPECT_EQ(conecta->Text3.text(), test.server);
    EXPECT_EQ(client().host, "demostracion");
  }
}

TEST_F(ConectaTest, TheLoginButtonWritesTheFileWhateverTheFieldsHold) {
  struct Case {
    const char *login, *password, *server, *host;
    State state;
  };
  const Case cases[] = {
      {"ana", "secreto", "feed.example", "feed.example", State::closed},
      {"usuario", "abc", "feed.example", "feed.example", State::closed},
      {"usuario", "secreto", " abcd ", "demostracion", State::connecting},
      {"ñañá", "clave", " feed.example ", "feed.example", State::connecting},
  };
  for (const Case& test : cases) {
    conecta->Recargar();
    conecta->Show();
    Type(test.login, test.password, test.server);
    std::string file;
    for (const char* text : {test.server, test.login, test.password}) {
      file += Pad(base::Utf8ToAnsi(text), 15);
    }
    EXPECT_EQ(dir.Read("IP.cfg"), file);
    EXPECT_EQ(client().host, test.host);
    EXPECT_EQ(client().state(), test.state);
    EXPECT_EQ(conecta->visible(), test.state == State::closed);
  }
  struct stat status {};
  ASSERT_EQ(stat(dir.Path("IP.cfg").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(ConectaTest, LogsInWithOneWrite) {
  market.Tickctl2.PonerTexto("Pulse ", "", 7, 80, "");
  Type("ana1", " secret", "feed.example");
  EXPECT_FALSE(conecta->Timer1.enabled());
  client().Accept();
  EXPECT_EQ(client().writes, Texts{Plain("ID:ana1   .secret ") + Plain("C:Brizna.Continuo")});
  EXPECT_EQ(conecta->IdSesion(), "ana1secret  ");
  EXPECT_EQ(market.Picture2.picture(), Picture::connected);
  EXPECT_EQ(outside.sockets.at(1)->host, "feed.example");
  EXPECT_EQ(client().port * 10000 + outside.sockets.at(1)->port, 231999);
  const auto& items = market.Tickctl2.items();
  ASSERT_EQ(items.size(), 3U);
  EXPECT_EQ(items[0].text + items[2].text, "Conectado Cotirama Data Server.");
  EXPECT_EQ(items[1].picture, Picture::server);
}

TEST_F(ConectaTest, AsksForASessionUntilItIsConfirmed) {
  LogIn();
  const std::string request = Plain("TRZO:usuariosecre:usuariosecre");
  outside.avanzar(10000);
  EXPECT_EQ(client().writes, (Texts{request, request}));
  client().Arrive(Frame("0000"));
  EXPECT_TRUE(conecta->SesionLista());
  outside.avanzar(10000);
  EXPECT_EQ(client().writes.size(), 2U);
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
  EXPECT_TRUE(outside.boxes.messages.empty());
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

TEST_F(ConectaTest, ShowsThatDataArrive) {
  LogIn();
  client().Arrive(Frame("0000"));
  EXPECT_EQ(market.Picture2.picture(), Picture::receiving);
  EXPECT_EQ(market.Label2.back(), base::palette::kRed);
  client().Arrive(Frame("0000") + Frame("half").substr(0, 8));
  EXPECT_EQ(market.Picture2.picture(), Picture::connected);
  // A byte counts once, however often it is carried over, even into the next connection.
  client().PeerClose();
  outside.avanzar(5000);
  client().Accept();
  client().Arrive(Frame("half").substr(8) + Frame("99,9   "));
  EXPECT_FALSE(conecta->SesionLista());
  EXPECT_EQ(market.Picture2.tool_tip(), "Bytes transferidos: 43");
}

TEST_F(ConectaTest, ReadsABacklogToItsEnd) {
  LogIn();
  std::string stream;
  for (int i = 1; i <= 1500; ++i) {
    const std::string code = "X" + std::to_string(i);
    stream += Frame("99,1   " + support::MasterRecord({.code = code, .name = "N"}));
  }
  client().Arrive(stream);
  EXPECT_EQ(market.store.NumInstrumentos(), 1500);
  EXPECT_EQ(conecta->decoder().ContadorRecords(), 1500);
  EXPECT_EQ(conecta->BytesTransferidos(), static_cast<int>(stream.size()));
}

TEST_F(ConectaTest, FollowsARedirectAfterTheReadHandler) {
  LogIn();
  const auto redirect = [this](const std::string& host) {
    client().Accept();
    client().Arrive(Plain("Internet:" + host));
    EXPECT_TRUE(conecta->conectado());
  };
  redirect("feed.example");
  outside.RunPosted();
  EXPECT_EQ(client().connects, 1);
  redirect("a.example");
  redirect("b.example");
  outside.RunPosted();
  EXPECT_EQ(client().host, "b.example");
  EXPECT_EQ(client().connects, 2);
  redirect("demostracion");
  outside.RunPosted();
  EXPECT_EQ(client().host, "b.example");
  // A box that follows in the same read lets posted tasks run, and the session waits all the same.
  outside.boxes.while_open = [this] {
    outside.RunPosted();
    EXPECT_TRUE(conecta->conectado());
  };
  redirect("e.example\xFF\xFENot:0001");
  outside.RunPosted();
  EXPECT_EQ(client().host, "e.example");
  EXPECT_EQ(client().connects, 3);
  redirect("c.example");
  conecta->Recargar();
  outside.RunPosted();
  EXPECT_EQ(client().connects, 3);
  client().Connect();
  redirect("d.example");
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
  EXPECT_EQ(outside.boxes.messages, Texts{"Notificacion: 0001 hola"});
  EXPECT_TRUE(conecta->SesionLista());

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
  EXPECT_TRUE(conecta->loaded());
  EXPECT_TRUE(conecta->SesionLista());
  EXPECT_EQ(market.Picture2.picture(), Picture::closed);
  EXPECT_EQ(conecta->Timer2.interval(), 60000);
  outside.avanzar(60000);
  EXPECT_TRUE(conecta->cerrado());

  // Closing only hides it until the program ends.
  conecta->Show();
  conecta->UserClose();
  EXPECT_FALSE(conecta->visible());
  EXPECT_TRUE(conecta->loaded());
  conecta->Cerrar();
  EXPECT_TRUE(conecta->Unload());
}

}  // namespace

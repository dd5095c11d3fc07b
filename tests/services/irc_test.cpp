#include "services/irc.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"

namespace {

std::string Joined(const auto& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "|") + line;
  return text;
}

const std::string kOtraVez = " Para entrar otra vez, cierre esta ventana y vuelva a abrirla.";
const std::string kWelcome = ":s 001 ana :Hola\n";
const std::string kJoined = kWelcome +
                            ":ana!a@h JOIN :#cotirama\r\n:s 353 ana = #Cotirama :@eva ana\n"
                            ":s 366 ana #Cotirama :End\n";

class IrcTest : public testing::Test {
 protected:
  /// The socket of the chat, once the window is loaded.
  support::FakeSocket& Begin(const std::string& user = "ana", const std::string& key = "clave") {
    irc.servidor.host = "chat.example";
    irc.steps = {.Usuario = [user] { return user; }, .Clave = [key] { return key; }};
    irc.Show();
    platform.sockets.at(0)->sent.clear();
    platform.sockets.at(0)->Accept();
    return *platform.sockets.at(0);
  }
  /// What the client has sent since the last time.
  std::string Sent() {
    std::string sent = std::exchange(platform.sockets.at(0)->sent, {});
    for (auto at = sent.find("\r\n"); at != std::string::npos; at = sent.find("\r\n")) {
      sent.replace(at, 2, "|");
    }
    return sent;
  }
  void Type(const std::string& text) {
    irc.C.set_text(text);
    irc.C.on_enter();
  }

  support::MemoryPlatform platform;
  services::Irc irc{platform};
};

TEST_F(IrcTest, WithoutAServerItSaysSoAndConnectsNowhere) {
  irc.Show();
  EXPECT_EQ(irc.Estado.caption(), "No hay ningún servidor de chat configurado.");
  EXPECT_TRUE(platform.sockets.empty());
  EXPECT_FALSE(irc.C.enabled());
  Type("hola");
  EXPECT_EQ(irc.C.text(), "hola");
  EXPECT_TRUE(irc.Unload());
}

TEST_F(IrcTest, TheLoginFieldsAreNickAndPasswordAndNoCommands) {
  const struct {
    std::string user, key, sent;
  } cases[] = {
      {"ana", "clave", "PASS :clave|NICK ana|USER cotirama 0 * :Cotirama|"},
      {"ana b", "", "NICK ana|USER cotirama 0 * :Cotirama|"},
      {"a\r\nJOIN", "k\nX", "PASS :kX|NICK aJOIN|USER cotirama 0 * :Cotirama|"},
      {"", "", "NICK invitado|USER cotirama 0 * :Cotirama|"},
  };
  for (const auto& [user, key, sent] : cases) {
    Begin(user, key);
    EXPECT_EQ(Sent(), sent);
    EXPECT_TRUE(irc.Unload());
  }
}

TEST_F(IrcTest, WhatTheServerSendsShowsInTheWindow) {
  const struct {
    std::string in, sent, talk, people, note;
  } cases[] = {
      {kWelcome, "JOIN #Cotirama|", "", "", "Entrando en el canal #Cotirama…"},
      {kJoined, "JOIN #Cotirama|", "", "ana|eva", ""},
      {kJoined + "PING :abc\x02 d\nPING x\n", "JOIN #Cotirama|PONG :abc d|PONG :x|", "", "ana|eva",
       ""},
      {kJoined + ":eva!e@h PRIVMSG #cotirama :hola <b>\n@t=1 :eva PRIVMSG ana :en privado\n"
                 ":eva PRIVMSG #otro :no\n:eva NOTICE #Cotirama :no\n:s 372 ana :no\n",
       "JOIN #Cotirama|", "<eva>hola <b>|<eva>en privado", "ana|eva", ""},
      {kJoined + ":eva PRIVMSG ana :\x01"
                 "ACTION saluda\x01\n:eva PRIVMSG ana :\x01VERSION\x01\n"
                 ":eva PRIVMSG ana :\x02\x03"
                 "04,1rojo\x03 \x0f y 1\t2\n:eva PRIVMSG ana :ma\xF1"
                 "ana\n:eva PRIVMSG ana :ma\xC3\xB1"
                 "an\xC3\n",
       "JOIN #Cotirama|", "* eva saluda|<eva>rojo  y 1 2|<eva>mañana|<eva>mañan", "ana|eva", ""},
      {kJoined + ":Leo JOIN #Cotirama\n:eva NICK zoe\n:LEO QUIT :x\n:pep JOIN :#COTIRAMA\n"
                 ":zoe KICK #Cotirama pep\n:mar JOIN #Cotirama\n:mar PART #Cotirama\n"
                 ":x JOIN #otro\n:y QUIT\n",
       "JOIN #Cotirama|", "", "ana|zoe", ""},
      {":s 433 * ana :En uso\n:s 436 * ana_ :Colisión\n:s 001 ana_1 :Hola\n:ana_1 JOIN #Cotirama\n",
       "NICK ana_|NICK ana_1|JOIN #Cotirama|", "", "ana_1", "Su apodo en el chat es ana_1."},
      {":s 432 * ana :Mal\n:s 433 * invitado :En uso\n:s 432 * invitado_ :Mal\n",
       "NICK invitado|NICK invitado_|NICK invitado|", "", "",
       "Conectando con el chat, chat.example…"},
      {":s 464 ana :Bad password\n:s 001 ana :Hola\n", "", "", "",
       "El servidor no admite la contraseña." + kOtraVez},
      {kWelcome + ":s 474 ana #Cotirama :Banned\n", "JOIN #Cotirama|", "", "",
       "El canal no admite a este usuario." + kOtraVez},
      {kJoined + ":eva KICK #Cotirama ana :por <b>pesada\n", "JOIN #Cotirama|", "", "",
       "Le han echado del canal: por <b>pesada." + kOtraVez},
      {kJoined + ":eva KICK #Cotirama eva\nERROR :Closing link\n:eva PRIVMSG ana :tarde\n",
       "JOIN #Cotirama|", "", "", "El servidor ha cerrado la conexión: Closing link." + kOtraVez},
      {"\n:\n: \n:x\n@\n@a :b\n001\n:s 353\n366\n433 433\nPRIVMSG\n:a PRIVMSG\nJOIN\nKICK\nNICK\n",
       "JOIN #Cotirama|", "", "", "Entrando en el canal #Cotirama…"},
  };
  for (const auto& [in, sent, talk, people, note] : cases) {
    // Whole, and byte by byte.
    for (const std::size_t step : {in.size(), std::size_t{1}}) {
      support::FakeSocket& socket = Begin();
      Sent();
      const std::size_t before = irc.T.lines().size();
      for (std::size_t i = 0; i < in.size(); i += step) socket.Arrive(in.substr(i, step));
      EXPECT_EQ(Sent(), sent) << in;
      const std::deque fresh(irc.T.lines().begin() + static_cast<std::ptrdiff_t>(before),
                             irc.T.lines().end());
      EXPECT_EQ(Joined(fresh), talk) << in;
      EXPECT_EQ(Joined(irc.L.items()), people) << in;
      EXPECT_EQ(irc.Estado.caption(), note) << in;
      EXPECT_TRUE(irc.Unload());
    }
  }
}

TEST_F(IrcTest, EnterSaysTheLineOnceTheChannelIsThere) {
  support::FakeSocket& socket = Begin();
  Type("hola");
  EXPECT_EQ(irc.C.text(), "hola");
  EXPECT_EQ(irc.Estado.caption(),
            "Todavía no se ha entrado en el chat: el texto se queda en su línea.");
  socket.Arrive(kJoined);
  Sent();
  Type("   ");
  EXPECT_EQ(Sent(), "");
  Type("hola\r\nQUIT");
  EXPECT_EQ(Sent(), "PRIVMSG #Cotirama :holaQUIT|");
  EXPECT_EQ(irc.C.text(), "");
  std::string wide;  // 799 bytes: "a" and 399 of two bytes
  for (int i = 0; i < 399; ++i) wide += "ñ";
  Type("a" + wide);
  EXPECT_EQ(Sent(), "PRIVMSG #Cotirama :a" + wide.substr(0, 398) +
                        "|PRIVMSG #Cotirama :" + wide.substr(398) + "|");
  EXPECT_EQ(Joined(irc.T.lines()), "hola  QUIT|a" + wide);
  socket.Arrive(":s 404 ana #Cotirama :No\n");
  EXPECT_EQ(irc.Estado.caption(), "El canal no ha admitido el mensaje.");
  Type("otra vez");
  EXPECT_EQ(irc.Estado.caption(), "");
  socket.PeerClose();
  EXPECT_EQ(irc.Estado.caption(), "El servidor ha cerrado la conexión." + kOtraVez);
  Type("sigue aquí");
  EXPECT_EQ(irc.C.text(), "sigue aquí");
}

TEST_F(IrcTest, UnloadingTakesLeaveAndClosesWhenTheServerDoesOrTwoSecondsLater) {
  for (const bool server_closes : {true, false}) {
    support::FakeSocket& socket = Begin();
    socket.Arrive(kJoined);
    Sent();
    EXPECT_TRUE(irc.Unload());
    EXPECT_EQ(Sent(), "PART #Cotirama|QUIT|");
    socket.Arrive(":s PRIVMSG ana :tarde\nPING x\n");
    if (server_closes) socket.PeerClose();
    platform.avanzar(1999);
    EXPECT_EQ(socket.state() == platform::Socket::State::closed, server_closes);
    platform.avanzar(1);
    EXPECT_EQ(socket.state(), platform::Socket::State::closed);
    EXPECT_EQ(platform.running_timers(), 0U);
    EXPECT_EQ(Sent(), "");
    EXPECT_TRUE(irc.T.lines().empty());
    EXPECT_TRUE(irc.L.items().empty());
  }
  // Loaded again before the old connection is gone, and while it is still being made.
  Begin().Arrive(kJoined);
  EXPECT_TRUE(irc.Unload());
  irc.Show();
  EXPECT_EQ(platform.sockets.at(0)->state(), platform::Socket::State::connecting);
  EXPECT_TRUE(irc.Unload());
  EXPECT_EQ(platform.sockets.at(0)->state(), platform::Socket::State::closed);
  EXPECT_EQ(platform.sockets.size(), 1U);
}

TEST(IrcClient, MayBeLeftOrConnectedAnewInsideAnyEventOfItsOwn) {
  for (const bool anew : {false, true}) {
    for (int event = 0; event < 7; ++event) {
      support::MemoryPlatform platform;
      std::unique_ptr<services::IrcClient> client;
      int heard = 0;
      const auto hear = [&](int which) {
        ++heard;
        if (which != event) return;
        anew ? client->Connect({"otro"}, "eva", "") : client->Quit();
      };
      client = std::make_unique<services::IrcClient>(
          platform,
          services::IrcClient::Events{.ready = [&] { client->Join("#Cotirama"), hear(0); },
                                      .joined = [&] { hear(1); },
                                      .names = [&](const auto&) { hear(2); },
                                      .message = [&](auto, auto) { hear(3); },
                                      .action = [&](auto, auto) { hear(4); },
                                      .refused = [&](auto) { hear(5); },
                                      .ended = [&](auto) { hear(6); }});
      client->Connect({"uno"}, "ana", "");
      support::FakeSocket& socket = *platform.sockets.at(0);
      socket.Accept();
      for (const char* line :
           {":s 001 ana :x\n", ":ana JOIN #Cotirama\n", ":e PRIVMSG ana :x\n",
            ":e PRIVMSG ana :\1ACTION x\n", ":e KICK #Cotirama ana\n", "ERROR :x\nPING x\n"}) {
        socket.Arrive(line);
      }
      EXPECT_EQ(socket.host, anew ? "otro" : "uno") << event;
      EXPECT_EQ(socket.state(), anew         ? platform::Socket::State::connecting
                                : event == 6 ? platform::Socket::State::closed
                                             : platform::Socket::State::connected);
      EXPECT_GT(heard, 0);
      EXPECT_EQ(socket.sent.find("PONG"), std::string::npos);
      platform.avanzar(2000);
      EXPECT_FALSE(client->connected());
    }
  }
}

TEST_F(IrcTest, LinesNamesAndListsOfAnyLengthStayBounded) {
  support::FakeSocket& socket = Begin();
  socket.Arrive(kJoined + ":" + std::string(100, 'n') + " PRIVMSG ana :");
  for (int i = 0; i < 300; ++i) socket.Arrive(std::string(10000, 'x'));
  socket.Arrive("\nPING fin\n");
  EXPECT_TRUE(Sent().ends_with("PONG :fin|"));
  EXPECT_EQ(irc.T.lines().back(), "<" + std::string(64, 'n') + ">" + std::string(1934, 'x'));
  for (int i = 0; i < 3000; ++i) socket.Arrive(":p" + std::to_string(i) + " JOIN #Cotirama\n");
  EXPECT_EQ(irc.L.items().size(), 2000U);
  std::string flood;
  for (int i = 0; i < 6000; ++i) flood += ":eva PRIVMSG ana :" + std::to_string(i) + "\n";
  socket.Arrive(flood);
  EXPECT_EQ(irc.T.lines().size(), 5000U);
  EXPECT_EQ(irc.T.lines().front(), "<eva>1000");
  irc.L.set_list_index(3);
  const std::string chosen = irc.L.items()[3];
  socket.Arrive(":a0 JOIN #Cotirama\n:ana QUIT\n:a1 JOIN #Cotirama\n");
  EXPECT_EQ(irc.L.items()[static_cast<std::size_t>(irc.L.list_index())], chosen);
}

TEST_F(IrcTest, NicksAreTriedUpToAnEnd) {
  support::FakeSocket& socket = Begin("José-Ángel");
  Sent();
  socket.Arrive(":s 432 * x :Mal\n");
  EXPECT_EQ(Sent(), "NICK Jos-ngel|");
  int tries = 2;
  for (; socket.state() == platform::Socket::State::connected && tries < 100; ++tries) {
    socket.Arrive(":s 433 * x :En uso\n");
  }
  EXPECT_LT(tries, 30);
  EXPECT_TRUE(Sent().starts_with("NICK Jos-ngel_|NICK Jos-nge_1|"));
  EXPECT_EQ(irc.Estado.caption(),
            "El servidor no admite ningún apodo parecido al del usuario." + kOtraVez);
}

}  // namespace

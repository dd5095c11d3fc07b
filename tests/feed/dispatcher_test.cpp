#include "feed/dispatcher.h"

#include <gtest/gtest.h>

#include "base/inflate.h"
#include "fixture.h"

namespace {

using Texts = std::vector<std::string>;

class DispatcherTest : public testing::Test {
 protected:
  DispatcherTest() {
    session.IdSesion.assign("ana");
    const auto note = [this](const char* what) {
      return [this, what](std::string_view text) { log.push_back(what + std::string(text)); };
    };
    dispatcher.steps = {[this](auto text) { return log.emplace_back(text), sending; },
                        note("proces "),
                        note("to "),
                        note(""),
                        [] { return true; },
                        note("box "),
                        [this] { log.push_back("beep"); }};
  }
  /// What was sent and asked for, and the tape where it has changed.
  Texts Procesar(std::string_view message) {
    const std::string before = Tape();
    log.clear();
    dispatcher.Renovar();
    dispatcher.Procesar(message);
    if (Tape() != before) log.push_back(Tape());
    return log;
  }
  [[nodiscard]] std::string Tape() const {
    std::string text;
    for (const auto& item : market.Tickctl1.items()) {
      text += item.key + "=" + item.text + "/" + std::to_string(item.color) + ";";
    }
    return text;
  }

  Market market;
  feed::SessionState session;
  feed::Zip zip;
  feed::Dispatcher dispatcher{session, market.store, market.Tickctl1, zip};
  Texts log;
  bool sending = true;
};

TEST_F(DispatcherTest, TellsMessagesApartAndActsOnThem) {
  for (const char* code : {"BET", "ALD"}) {
    store::LibroOrdenes book;
    book.Codigo.assign(code);
    market.store.GuardarLibro(book);
  }
  const std::string id = "ana         ", far(300, 'h');
  const auto redirect = [&](const std::string& text, const std::string& host) {
    Texts expected{"TRZO:" + id + ":" + id + text, "proces " + text};
    if (!host.empty()) expected.insert(expected.begin() + 1, "to " + host);
    return std::pair(text, expected);
  };
  const std::string absent = "ABCD:Productor no disponible";
  const std::string box =
      "box El productor ABCD no está conectado en la red. Las operaciones con "
      "este productor se han abortado.";
  const std::string message = "Msg123sender-789012 text", reply = "RNETsender-789012:Msg123Ok";
  const std::pair<std::string, Texts> cases[] = {
      {"0000", {"P:BET    ", "P:ALD    "}},
      {"0003", {"P:BET    ", "P:ALD    "}},
      {"0000 ", {"proces 0000 "}},
      {absent, {box, "proces " + absent}},
      redirect("Internet:b", "b"),
      redirect("Internet:" + far, far.substr(0, 255)),
      redirect("Internet", ""),
      redirect("Internet: a", ""),
      redirect("Internet:\xE1", ""),
      redirect("Internet:", ""),
      // A notification, known when it comes again.
      {"Not:1234 \xF1\n",
       {"Not:1234", "beep", "beep", "box Notificacion: 1234 ñ\n", "Not=1234 ñ /14;"}},
      {"Not:1234 \xF1\n", {}},
      // Alerts; a colour beyond the palette takes the old text away and brings no new one.
      {"XYZALE12-uno", {"Not=1234 ñ /14;XYZALE12=uno/12;"}},
      {"XYZALE12-tres", {"Not=1234 ñ /14;XYZALE12=tres/12;"}},
      {"XYZALE12-uno", {}},
      {"XYZALE16-no", {}},
      {"XYZALE-1-no", {}},
      {"Not:5678",
       {"Not:5678", "beep", "beep", "box Notificacion: 5678", "XYZALE12=tres/12;Not=5678/14;"}},
      {"xALE", {"proces xALE"}},
      // User messages: every remembered one that the new one begins with brings a reply.
      {message, {reply}},
      {"Msg123sender-789012", {reply}},
      {message + "!", {reply, reply}},
      {message + " Ok", {}},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(Procesar(text), expected) << text;
  EXPECT_TRUE(session.SesionLista);
  sending = false;
  EXPECT_EQ(Procesar("0003").size(), 1U);
  EXPECT_EQ(Procesar(message + "!").size(), 1U);
}

TEST_F(DispatcherTest, LaysPagesOutInLinesOf80) {
  std::string text;
  for (char c = 'a'; c < 'z'; ++c) text += std::string(80, c);
  const std::string page = Procesar("Pag1" + base::Compress(text + "beyond")).at(0);
  EXPECT_EQ(page.size(), 25U * 82);
  EXPECT_EQ(page.substr(79, 4), "a\r\nb");
  EXPECT_EQ(Procesar("Not:short Pag").at(0).substr(0, 12), "short Pag\r\n\r");
}

TEST_F(DispatcherTest, RemembersTenThousandTextsAndActsOnAThousandAnEvent) {
  for (int i = 1; i <= 10000; ++i) Procesar("Not:" + std::to_string(i));
  EXPECT_EQ(Procesar("Not:1"), Texts{});
  Procesar("Not:one more");
  EXPECT_NE(Procesar("Not:1"), Texts{});

  log.clear();
  for (int i = 0; i < 2000; ++i) dispatcher.Procesar("Internet");
  EXPECT_EQ(log.size(), 2000U + 999U);
}

}  // namespace

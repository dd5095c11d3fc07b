#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QScrollBar>
#include <QTcpServer>
#include <QTextBlock>

#include "../wait.h"
#include "qt/look/register.h"
#include "qt/look/service_looks.h"
#include "qt/look/text_log_widget.h"
#include "qt/ports/qt_platform.h"
#include "shell/mdi.h"
#include "support/temp_dir.h"

namespace {

using support::WaitFor;

QString NameOf(QWidget& widget) {
  return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

QWidget* NextByTab(QWidget& from) {
  QWidget* next = from.nextInFocusChain();
  while ((next->focusPolicy() & Qt::TabFocus) == 0) next = next->nextInFocusChain();
  return next;
}

class ChatLookTest : public testing::Test {
 protected:
  ChatLookTest() {
    qt::RegisterLooks(looks);
    mdi.Show();
  }
  ~ChatLookTest() override { platform.desktop().Clear(); }

  QWidget& WidgetOf(platform::Window& window, platform::Control& control) {
    return *platform.desktop().FrameOf(window)->look().widget_of(control);
  }
  qt::TextLogWidget& Talk() { return static_cast<qt::TextLogWidget&>(WidgetOf(ana, ana.T)); }
  void AddLines(int count) {
    for (int i = 0; i < count; ++i) ana.T.AddLine("línea <b>" + std::to_string(lines++));
    ASSERT_TRUE(WaitFor([&] { return !ana.T.dirty(); }));
  }
  static void Type(services::Irc& window, const std::string& text) {
    window.C.set_text(text);
    window.C.on_enter();
  }

  qt::Looks looks;
  qt::QtPlatform platform{looks};
  shell::MDI mdi{platform};
  services::Irc ana{platform}, eva{platform};
  int lines = 0;
};

TEST_F(ChatLookTest, TheConversationFollowsItsLogHoweverManyLinesComeAtOnce) {
  ana.Show();
  for (const int count : {1, 2, 3000, 1997, 1, 4999, 5000, 12345, 3}) {
    AddLines(count);
    QString whole;
    for (const std::string& line : ana.T.lines()) {
      whole += QString::fromStdString((whole.isEmpty() ? "" : "\n") + line);
    }
    ASSERT_EQ(Talk().toPlainText(), whole) << count;
    EXPECT_TRUE(Talk().textCursor().atEnd());
    EXPECT_EQ(Talk().verticalScrollBar()->value(), Talk().verticalScrollBar()->maximum());
  }
  ana.T.AddLine("a\u2029b\uFDD0c\nd\te");
  ASSERT_TRUE(WaitFor([&] { return !ana.T.dirty(); }));
  EXPECT_EQ(Talk().document()->lastBlock().text(), "a b c d e");
}

TEST_F(ChatLookTest, ASelectionAndAPlaceScrolledBackToStay) {
  ana.Show();
  AddLines(4000);
  Talk().verticalScrollBar()->setValue(3000);
  AddLines(2000);  // 1000 of the first go
  EXPECT_EQ(Talk().cursorForPosition({0, 0}).block().text(), "línea <b>3000");
  EXPECT_TRUE(Talk().textCursor().atEnd());
  QTextCursor cursor = Talk().textCursor();
  cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
  Talk().setTextCursor(cursor);
  AddLines(10);
  EXPECT_EQ(Talk().textCursor().selectedText(), "línea <b>5999");
  EXPECT_EQ(Talk().textCursor().position(), Talk().textCursor().selectionStart());
}

TEST_F(ChatLookTest, TheKeyboardGoesFromTheLineToConversationAndPeople) {
  ana.servidor = {"127.0.0.1", 1};
  ana.Show();
  auto& input = WidgetOf(ana, ana.C);
  auto& people = WidgetOf(ana, ana.L);
  EXPECT_EQ(input.window()->focusWidget(), &input);
  EXPECT_EQ(NextByTab(input), &Talk());
  EXPECT_EQ(NextByTab(Talk()), &people);
  EXPECT_EQ(NameOf(input) + '|' + NameOf(Talk()) + '|' + NameOf(people),
            "Mensaje|Conversación|Personas");
  EXPECT_LE(input.window()->minimumSizeHint().width(), 420);
  EXPECT_LE(input.window()->minimumSizeHint().height(), 300);
}

/// Debian's server on a free port of this machine.
class RealServerTest : public ChatLookTest {
 protected:
  static constexpr const char* kProgram = "/usr/sbin/ngircd";

  void SetUp() override {
    if (!QFile::exists(QString::fromUtf8(kProgram))) {
      GTEST_SKIP() << kProgram << " is not installed (Debian package ngircd)";
    }
    QTcpServer free;
    ASSERT_TRUE(free.listen(QHostAddress::LocalHost));
    port = free.serverPort();
    free.close();
    dir.Write("server.cfg",
              "[Global]\nName = chat.example\nInfo = x\nListen = 127.0.0.1\nPorts = " +
                  std::to_string(port) +
                  "\nPassword = clave\n[Limits]\nMaxNickLength = 9\nMaxPenaltyTime = 0\n" +
                  "[Options]\nDNS = no\nIdent = no\nPAM = no\nIncludeDir = " + dir.path() + "\n");
    server.start(QString::fromUtf8(kProgram),
                 {"-n", "-f", QString::fromStdString(dir.Path("server.cfg"))});
    ASSERT_TRUE(server.waitForStarted());
    ASSERT_TRUE(WaitFor([&] {
      QTcpSocket probe;
      probe.connectToHost(QHostAddress::LocalHost, port);
      return probe.waitForConnected(200);
    }));
  }
  void TearDown() override {
    server.terminate();
    if (server.state() != QProcess::NotRunning && !server.waitForFinished(5000)) server.kill();
  }
  void Join(services::Irc& window, const std::string& user) {
    window.servidor = {"127.0.0.1", port};
    window.steps = {.Usuario = [user] { return user; }, .Clave = [] { return "clave"; }};
    window.Show();
  }
  static bool Shows(const services::Irc& window, const std::vector<std::string>& people) {
    return WaitFor([&] { return window.L.items() == people; });
  }
  static bool Says(const services::Irc& window, const std::string& line) {
    return WaitFor([&] { return !window.T.lines().empty() && window.T.lines().back() == line; });
  }

  support::TempDir dir;
  QProcess server;
  quint16 port = 0;
};

TEST_F(RealServerTest, TwoWindowsTalkToEachOther) {
  Join(ana, "ana");
  ASSERT_TRUE(Shows(ana, {"ana"})) << ana.Estado.caption();
  Join(eva, "ana");  // taken
  ASSERT_TRUE(Shows(eva, {"ana", "ana_"})) << eva.Estado.caption();
  ASSERT_TRUE(Shows(ana, {"ana", "ana_"}));
  EXPECT_EQ(ana.Estado.caption(), "");
  EXPECT_EQ(eva.Estado.caption(), "Su apodo en el chat es ana_.");
  Type(ana, "¿Qué tal <b>?");
  EXPECT_TRUE(Says(eva, "<ana>¿Qué tal <b>?"));
  std::string most;
  for (int i = 0; i < 200; ++i) most += "ñ";
  Type(eva, most + "y más");  // in two messages
  EXPECT_TRUE(Says(ana, "<ana_>y más"));
  EXPECT_EQ(ana.T.lines().at(ana.T.lines().size() - 2), "<ana_>" + most);
  EXPECT_TRUE(eva.Unload());
  EXPECT_TRUE(Shows(ana, {"ana"}));
  Join(eva, "José Luis");  // its server knows no such letters
  EXPECT_TRUE(Shows(ana, {"ana", "Jos"}));
  server.terminate();
  EXPECT_TRUE(WaitFor([&] { return ana.Estado.caption().starts_with("El servidor ha cerrado"); }));
  EXPECT_TRUE(ana.L.items().empty());
}

}  // namespace

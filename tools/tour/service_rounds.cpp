#include <cstdio>
#include <memory>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>

#include "services/irc_client.h"
#include "tour.h"

// The server's pages, the chat, the manual, a sheet of an office, and what the program is. Chat and
// sheet need a chat server and an office on this machine.
namespace tour {
namespace {

constexpr int kActivateSheet = 78;  // tool

/// Another program, for as long as this lives.
class Other {
 public:
  Other(const QString& program, const QStringList& arguments) {
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.start(program, arguments);
  }
  ~Other() {
    process_.terminate();
    if (!process_.waitForFinished(10000)) process_.kill();
    process_.waitForFinished(2000);
  }

 private:
  QProcess process_;
};

QString Find(const char* program) {
  const QString name = QLatin1String(program);
  const QString found = QStandardPaths::findExecutable(name);
  return found.isEmpty() ? QStandardPaths::findExecutable(name, {QStringLiteral("/usr/sbin")})
                         : found;
}

bool Write(const QString& path, const QByteArray& content) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

quint16 FreePort() {
  QTcpServer server;
  return server.listen(QHostAddress::LocalHost) ? server.serverPort() : 0;
}

bool Listens(quint16 port) {
  QTcpSocket socket;
  socket.connectToHost(QHostAddress::LocalHost, port);
  return socket.waitForConnected(200);
}

QByteArray SheetWith(std::initializer_list<const char*> codes) {
  QByteArray rows(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
      "<office:document xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
      " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
      " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" office:version=\"1.3\""
      " office:mimetype=\"application/vnd.oasis.opendocument.spreadsheet\"><office:body>"
      "<office:spreadsheet><table:table "
      "table:name=\"Cotirama\"><table:table-row><table:table-cell/>"
      "</table:table-row>");
  for (const char* code : codes) {
    rows += "<table:table-row><table:table-cell office:value-type=\"string\"><text:p>";
    rows += code;
    rows += "</text:p></table:table-cell></table:table-row>";
  }
  return rows + "</table:table></office:spreadsheet></office:body></office:document>";
}

}  // namespace

void Tour::Pages() {
  services::Pages& window = terminal_.Pages;
  window.Show();
  Run(300);
  Keep(OuterOf(window), QStringLiteral("paginas-vacia"));
  Click(window, window.Command1);
  WaitFor("a page", [&] { return !window.Label1.caption().empty(); });
  Run(300);
  Keep(OuterOf(window), QStringLiteral("paginas"));
  window.Text1.set_text("10");
  window.Text1.on_enter();
  Run(1500);
  Keep(OuterOf(window), QStringLiteral("paginas-10"));
  window.Hide();
}

void Tour::Chat() {
  services::Irc& window = terminal_.Irc;
  KeepShown(window, QStringLiteral("chat-sin-servidor"));
  (void)window.Unload();
  const QString server = Find("ngircd");
  if (server.isEmpty()) return (void)std::printf("left out: no ngircd, no picture of the chat\n");
  const quint16 port = FreePort();
  const QByteArray key = QByteArray::fromStdString(terminal_.Conecta.Clave());
  const QString settings = files_.filePath(QStringLiteral("ngircd.conf"));
  good_ = Write(settings, "[Global]\nName = chat.local\nInfo = chat\nListen = 127.0.0.1\nPorts = " +
                              QByteArray::number(port) + "\nPassword = " + key +
                              "\nServerUID = nobody\nServerGID = nogroup\n[Options]\nDNS = no\n"
                              "Ident = no\nPAM = no\n") &&
          good_;
  const Other daemon(server, {QStringLiteral("-n"), QStringLiteral("-f"), settings});
  if (!WaitFor("the chat server", [&] { return Listens(port); })) return;
  bool there = false;
  std::unique_ptr<services::IrcClient> other;
  services::IrcClient::Events events;
  events.ready = [&] { other->Join(services::Irc::kCanal); };
  events.joined = [&] { there = true; };
  other = std::make_unique<services::IrcClient>(platform_, events);
  other->Connect({"127.0.0.1", port}, "Marta", key.toStdString());
  WaitFor("the other user", [&] { return there; });
  window.servidor = {"127.0.0.1", port};
  window.Show();
  WaitFor("both users", [&] { return window.L.items().size() == 2; });
  (void)other->Say("Buenos días. ¿Habéis visto Bodegas del Valle esta mañana?",
                   services::Irc::kCanal);
  Run(400);
  window.C.set_text("Sí, por encima de 14 desde la apertura.");
  window.C.on_enter();
  Run(400);
  (void)other->Say("Y con más volumen que ayer a esta hora: € 1.2 millones.",
                   services::Irc::kCanal);
  WaitFor("the talk", [&] { return window.T.lines().size() >= 3; });
  Run(300);
  Keep(OuterOf(window), QStringLiteral("chat"));
  other->Quit();
  (void)window.Unload();
  Run(300);
}

void Tour::Manual() {
  services::Browser& window = terminal_.Browser;
  window.Abrir(services::Browser::Pagina::manual);
  WaitFor("the manual", [&] { return !window.brwWebBrowser.location_name().empty(); });
  Run(3000);
  KeepScreen(QStringLiteral("manual"));
  (void)window.Unload();
  // This program's loop leaves such to whoever opens a box.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Tour::Sheet() {
  const QString office = Find("soffice");
  if (office.isEmpty()) return (void)std::printf("left out: no office, no picture of a sheet\n");
  const QString document = files_.filePath(QStringLiteral("cotirama.fods"));
  good_ = Write(document, SheetWith({"BVL", "TLB", "PTI", "AZL", "CVN", "SOL", "I IB"})) && good_;
  const Other process(office, {QStringLiteral("-env:UserInstallation=file://") + files_.path() +
                                   QStringLiteral("/oficina"),
                               QStringLiteral("--norestore"), QStringLiteral("--nologo"),
                               QStringLiteral("--nofirststartwizard"), document});
  const spreadsheet::Excel& link = terminal_.Excel;
  platform::Spreadsheet& sheet = platform_.spreadsheet();
  WaitFor("the sheet", [&] {
    if (link.ExcelApp && std::holds_alternative<std::string>(sheet.value(2, 1))) return true;
    terminal_.MDI.ActiveBar1.Click({kActivateSheet, {}});
    Run(2000);
    return false;
  });
  Run(6000);
  QWidget* main_window = OuterOf(terminal_.MDI);
  main_window->hide();
  Run(1500);
  KeepScreen(QStringLiteral("hoja"));
  main_window->show();
  terminal_.Excel.ExcelDetach();
}

void Tour::Services() {
  Pages();
  Chat();
  Manual();
  KeepShown(terminal_.Sobre, QStringLiteral("sobre"));
  Sheet();
}

}  // namespace tour

#include "qt/look/browser_look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTextBrowser>

#include "../wait.h"
#include "qt/look/small_widgets.h"
#include "qt/look/theme.h"
#include "qt/look/web_loader.h"
#include "qt/ports/qt_platform.h"
#include "support/temp_dir.h"

#if defined(__SANITIZE_ADDRESS__)
// The web engine frees with other sizes than it allocates, and leaves what it and the machine's
// fonts have made to the end of the process.
extern "C" const char* __asan_default_options() { return "new_delete_type_mismatch=0"; }
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libQt6WebEngineCore\nleak:libfontconfig\n";
}
#endif

namespace {

struct FakePlugin : qt::WebPlugin {
  qt::WebScreen Make(const qt::WebHooks& given, QWidget& parent) override {
    hooks = given;
    return {
        new QWidget(&parent), [this](const QUrl& to) { went = to; }, [] {}, [] {}, [] {}, [] {}};
  }
  qt::WebHooks hooks;
  QUrl went;
};

/// A server of pages that says what it was asked for.
class PageServer {
 public:
  explicit PageServer(QByteArray page) : page_(std::move(page)) {
    (void)server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
      QTcpSocket* peer = server_.nextPendingConnection();
      QObject::connect(peer, &QTcpSocket::readyRead, peer, [this, peer] {
        const QByteArray line = peer->readAll().split('\r').first();
        if (!line.contains("favicon")) asked.push_back(line.split(' ').value(1).toStdString());
        peer->write("HTTP/1.0 200 OK\r\nContent-Type: text/html; charset=utf-8\r\n\r\n" + page_);
        peer->disconnectFromHost();
      });
    });
  }
  [[nodiscard]] std::string address() const {
    return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + "/";
  }
  std::vector<std::string> asked;

 private:
  QTcpServer server_;
  QByteArray page_;
};

struct Main : platform::Window {
  using Window::Window;
};

qt::Look MakeMain(Main&, qt::FrameClock&) {
  auto* widget = new QMainWindow;
  auto* area = new QMdiArea;
  widget->setCentralWidget(area);
  widget->resize(900, 600);
  return {.widget = widget, .place = qt::Place::main, .area = area};
}

class BrowserLook : public testing::Test {
 protected:
  BrowserLook() {
    qt::ApplyTheme(*qApp);
    window.steps.Manual = [this] { return platform::FileAddress(directory.Path("Manual/")); };
    directory.Write("Manual/index.html",
                    "<meta charset=utf-8><title>...</title><script>let told = 'Guía';"
                    "onmessage = () => { told = 'secreto'; };"
                    "setTimeout(() => { document.title = told; }, 300);"
                    "setTimeout(() => { location = '../secreto.html'; }, 1);"
                    "</script><iframe src='../secreto.html'></iframe>");
    directory.Write("secreto.html",
                    "<title>secreto</title><script>parent.postMessage('secreto', '*')</script>");
  }
  ~BrowserLook() override {
    platform.desktop().Clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void Show(qt::WebPlugin* plugin) {
    looks.Add<Main>(MakeMain);
    main.Show();
    looks.Add<services::Browser>([plugin](services::Browser& browser, qt::FrameClock& clock) {
      return qt::MakeBrowserLook(browser, clock, plugin);
    });
    window.Show();
  }
  void Type(std::string_view address) {
    window.Direccion.set_text(address);
    window.Direccion.on_enter();
  }
  [[nodiscard]] std::string TitleAfterAWaitFor(const std::string& title) {
    (void)support::WaitFor([&] { return window.caption() == title; });
    return window.caption();
  }
  [[nodiscard]] bool Says(const QString& text) {
    const auto labels = platform.desktop().FrameOf(window)->outer()->findChildren<QLabel*>();
    return std::ranges::any_of(labels, [&](const QLabel* label) {
      return label->isVisible() && label->text().contains(text);
    });
  }

  support::TempDir directory;
  qt::Looks looks;
  qt::QtPlatform platform{looks};
  Main main{platform};
  services::Browser window{platform};
};

TEST_F(BrowserLook, WithoutAWebViewPagesOpenInTheDesktopsBrowser) {
  // Takes the place of the desktop's browser, by a signal that has an address with it.
  QTextBrowser desktop;
  QStringList opened;
  QDesktopServices::setUrlHandler(QStringLiteral("http"), &desktop, "anchorClicked");
  QObject::connect(&desktop, &QTextBrowser::anchorClicked,
                   [&opened](const QUrl& address) { opened << address.toString(); });
  window.steps.Manual = nullptr;
  Show(nullptr);
  EXPECT_TRUE(opened.isEmpty());
  Type("bolsa/<b>?a");
  EXPECT_TRUE(Says(QStringLiteral("navegador del escritorio")));
  for (QPushButton* again :
       platform.desktop().FrameOf(window)->outer()->findChildren<QPushButton*>()) {
    again->click();
  }
  QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
  EXPECT_EQ(opened, QStringList(2, QStringLiteral("http://bolsa/%3Cb%3E?a")));
}

TEST_F(BrowserLook, SaysWhatFailsAndIsSilentOnceItIsClosed) {
  FakePlugin plugin;
  Show(&plugin);
  EXPECT_EQ(plugin.went.fileName(), QStringLiteral("index.html"));
  plugin.hooks.failed();
  EXPECT_TRUE(Says(QStringLiteral("ha fallado")));
  Type("a b");
  EXPECT_TRUE(Says(QStringLiteral("No es una dirección")));
  plugin.hooks.tell(true, {}, plugin.went);
  EXPECT_FALSE(Says(QStringLiteral("No es una dirección")));
  EXPECT_FALSE(plugin.hooks.allows(
      QUrl::fromLocalFile(QString::fromStdString(directory.Path("secreto.html")))));

  (void)window.Unload();
  plugin.hooks.tell(false, QStringLiteral("late"), {});
  plugin.hooks.failed();
  EXPECT_FALSE(plugin.hooks.allows(QUrl(QStringLiteral("http://a"))));
  EXPECT_NE(window.caption(), "late");
}

TEST_F(BrowserLook, ShowsPagesAndLetsThemDoNoMore) {
  qt::WebPlugin* plugin = qt::LoadWebPlugin();
  if (!plugin) GTEST_SKIP() << "Qt WebEngine isn't installed";
  const QByteArray secret =
      QByteArray::fromStdString(platform::FileAddress(directory.Path("secreto.html")));
  PageServer server("<meta charset=utf-8><title>...</title><script>" +
                    QByteArray("const said = [alert(1), confirm(1), window.open('/popup')];"
                               "onmessage = () => said.push('secreto');"
                               "navigator.geolocation.getCurrentPosition("
                               "    () => {}, e => said.push(e.code));"
                               "setTimeout(() => { location = 'mailto:a@b'; }, 50);"
                               "setTimeout(() => { location = 'data:text/html,data'; }, 100);"
                               "setTimeout(() => { document.title = said.join(); }, 300);"
                               "location = '") +
                    secret + "';</script><iframe src='" + secret + "'></iframe>");
  // Asked from then on how to read out whatever gets the keyboard, the engine's objects too.
  qt::LabelWidget().set_pressable(true);
  Show(plugin);
  EXPECT_EQ(TitleAfterAWaitFor("Guía"), "Guía");
  Type(server.address());
  EXPECT_EQ(TitleAfterAWaitFor(",true,,1"), ",true,,1");
  EXPECT_EQ(window.Direccion.text(), server.address());
  EXPECT_EQ(server.asked, std::vector<std::string>{"/"});

  (void)window.Unload();
  window.Abrir(services::Browser::Pagina::manual);
  EXPECT_EQ(TitleAfterAWaitFor("Guía"), "Guía");
}

}  // namespace

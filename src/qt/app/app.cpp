#include "qt/app/app.h"

#include <csignal>
#include <dlfcn.h>
#include <thread>

#include <QApplication>
#include <QLocale>
#include <QTranslator>

#include "qt/demo/embedded_market.h"
#include "qt/look/register.h"
#include "qt/look/theme.h"
#include "qt/ports/qt_platform.h"
#include "shell/terminal.h"

namespace qt {
namespace {

/// The standard dialogs speak Spanish whatever the machine's language.
void SpeakSpanish(QTranslator& translator) {
  QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
  if (translator.load(QStringLiteral(":/i18n/qtbase_es.qm"))) {
    QCoreApplication::installTranslator(&translator);
  }
}

/// Reads the machine's font settings, which takes longest of a start, while something else goes on.
/// They belong to a library of Qt's: where Qt does without it, this does nothing.
class FontSettings {
 public:
  FontSettings() {
    if (void* init = dlsym(RTLD_DEFAULT, "FcInit")) {
      reader_ = std::thread([init] { reinterpret_cast<int (*)()>(init)(); });
    }
  }
  ~FontSettings() { Wait(); }
  void Wait() {
    if (reader_.joinable()) reader_.join();
  }

 private:
  std::thread reader_;
};

}  // namespace

int Run(int argc, char** argv) {
  // A file that grows past the user's limit is like a full disk: the write fails, no more.
  std::signal(SIGXFSZ, SIG_IGN);
  FontSettings fonts;
  int names = argc > 0 ? 1 : 0;
  QApplication application(names, argv);
  QApplication::setApplicationName(QStringLiteral("cotirama"));
  QApplication::setQuitOnLastWindowClosed(false);
  QTranslator translator;
  SpeakSpanish(translator);
  fonts.Wait();
  ApplyTheme(application);

  Looks looks;
  RegisterLooks(looks);
  EmbeddedMarket market({});
  QtPlatform platform(looks, ResolverWith(market));
  shell::Terminal terminal(platform,
                           base::ProgramDir(QApplication::applicationDirPath().toStdString()));
  // Not quit(): that would ask every window, and those that only hide would refuse.
  terminal.on_end = [] { QCoreApplication::exit(0); };
  terminal.Start();
  const int status = QApplication::exec();
  // The widgets know the windows' controls, which go with the terminal.
  platform.desktop().Clear();
  return status;
}

}  // namespace qt

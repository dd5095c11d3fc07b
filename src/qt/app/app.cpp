#include "qt/app/app.h"

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

}  // namespace

int Run(int argc, char** argv) {
  int names = argc > 0 ? 1 : 0;
  QApplication application(names, argv);
  QApplication::setApplicationName(QStringLiteral("cotirama"));
  QApplication::setQuitOnLastWindowClosed(false);
  QTranslator translator;
  SpeakSpanish(translator);
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

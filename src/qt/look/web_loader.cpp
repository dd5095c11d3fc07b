#include "qt/look/web_loader.h"

#include <unistd.h>

#include <QFile>
#include <QLibraryInfo>
#include <QPluginLoader>

#include "qt/ports/parts.h"

namespace qt {
namespace {

/// A variable of the environment as it was, to be put back.
struct Variable {
  const char* name;
  QByteArray was = qgetenv(name);
  bool had = qEnvironmentVariableIsSet(name);

  void PutBack() const { had ? qputenv(name, was) : qunsetenv(name); }
};

/// Settles what the web view reads of the environment. False where it would end the program.
bool Prepare() {
  const QString process = QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) +
                          QStringLiteral("/QtWebEngineProcess");
  if (!QFile::exists(process)) return false;
  constexpr char kNoSandbox[] = "QTWEBENGINE_DISABLE_SANDBOX";
  if (geteuid() == 0) {
    qputenv(kNoSandbox, "1");  // otherwise it refuses to run
  } else {
    qunsetenv(kNoSandbox);
  }
  // What begins as a download is on the disk before it is refused. This one is memory.
  qputenv("XDG_DATA_HOME", "/dev/shm");
  // Everything else is drawn without a graphics card as well, whose libraries would keep files of
  // their own in the user's cache.
  qputenv("QT_XCB_GL_INTEGRATION", "none");
  qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu");
  return true;
}

}  // namespace

WebPlugin* LoadWebPlugin() {
  const QString path = FindPart(QStringLiteral("cotirama-web.so"));
  if (path.isEmpty()) return nullptr;
  QPluginLoader loader(path);
  const Variable settled[] = {{"QTWEBENGINE_DISABLE_SANDBOX"},
                              {"XDG_DATA_HOME"},
                              {"QT_XCB_GL_INTEGRATION"},
                              {"QTWEBENGINE_CHROMIUM_FLAGS"}};
  if (!loader.isLoaded() && !Prepare()) return nullptr;
  // It would tell of the graphics card that it does without.
  const QtMessageHandler before =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  auto* plugin = qobject_cast<WebPlugin*>(loader.instance());
  qInstallMessageHandler(before);
  // The desktop's browser, which stands in for it, starts with the user's own.
  if (!plugin) {
    for (const Variable& variable : settled) variable.PutBack();
  }
  return plugin;
}

}  // namespace qt

// Runs the terminal against the embedded market and leaves pictures of what there is to see in the
// directory that the first argument names: of the windows as they are, on a small screen, and on a
// fine one.

#include <cstdio>

#include <QApplication>
#include <QDir>
#include <QProcess>

#include "qt/look/theme.h"
#include "tour.h"

namespace {

/// The same program once more, on a screen of twice as many dots.
bool RunFine(const char* program, const QString& directory) {
  QProcess process;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  process.start(QString::fromLocal8Bit(program), {directory, QStringLiteral("hidpi-")});
  return process.waitForFinished(4 * tour::kPatienceMs) && process.exitCode() == 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  qt::ApplyTheme(application);
  const QString directory = application.arguments().value(1);
  if (directory.isEmpty() || !QDir().mkpath(directory)) {
    std::fprintf(stderr, "usage: cotirama-tour DIRECTORY\n");
    return 2;
  }
  if (const QString prefix = application.arguments().value(2); !prefix.isEmpty()) {
    return tour::Tour(directory, prefix).Short() ? 0 : 1;
  }
  bool good = false;
  {
    tour::Tour round(directory, {});
    good = round.Full();
  }
  return RunFine(argv[0], directory) && good ? 0 : 1;
}

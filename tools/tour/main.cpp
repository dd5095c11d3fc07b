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

const QString kDark = QStringLiteral("oscuro-");

/// The same program once more, with other pictures: on a screen of so many dots to one, or on a
/// desktop of that palette.
bool RunAgain(const char* program, const QString& directory, const QString& prefix,
              const char* dots) {
  QProcess process;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(dots));
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  process.start(QString::fromLocal8Bit(program), {directory, prefix});
  return process.waitForFinished(4 * tour::kPatienceMs) && process.exitCode() == 0;
}

/// What a dark, or a light, desktop gives every program.
QPalette DesktopPalette(bool dark) {
  return dark ? QPalette(QColor(0x30, 0x30, 0x30)) : QPalette(QColor(0xf0, 0xf0, 0xf0));
}

}  // namespace

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QString directory = application.arguments().value(1),
                prefix = application.arguments().value(2);
  QApplication::setPalette(DesktopPalette(prefix == kDark));
  qt::ApplyTheme(application);
  if (directory.isEmpty() || !QDir().mkpath(directory)) {
    std::fprintf(stderr, "usage: cotirama-tour DIRECTORY\n");
    return 2;
  }
  if (!prefix.isEmpty()) {
    return tour::Tour(directory, prefix).Short() ? 0 : 1;
  }
  bool good = false;
  {
    tour::Tour round(directory, {});
    good = round.Full();
  }
  good = RunAgain(argv[0], directory, QStringLiteral("hidpi-"), "2") && good;
  return RunAgain(argv[0], directory, kDark, "1") && good ? 0 : 1;
}

#include <cstdio>
#include <unistd.h>

#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QTimer>

// Prints the resident memory, in MiB, of a program with nothing but an empty main window.
int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  window.resize(1280, 800);
  window.show();
  QTimer::singleShot(500, [] {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) return QApplication::exit(1);
    const double pages = file.readAll().split(' ').value(1).toDouble();
    std::printf("%f\n", pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20));
    QApplication::exit(0);
  });
  return QApplication::exec();
}

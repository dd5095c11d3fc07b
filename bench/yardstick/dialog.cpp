#include <QApplication>
#include <QDialog>

// The least that a start of a window takes.
int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QDialog dialog;
  dialog.setWindowTitle(QStringLiteral("Conecta"));
  dialog.show();
  return QApplication::exec();
}

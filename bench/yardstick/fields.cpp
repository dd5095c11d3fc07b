#include <QApplication>
#include <QDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

// A dialog with the fields of a login, and so with text, as Qt makes it.
int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QDialog dialog;
  dialog.setWindowTitle(QStringLiteral("Conecta"));
  auto* rows = new QFormLayout(&dialog);
  for (const char* name : {"IP", "LOGIN", "PASSWORD"}) {
    rows->addRow(QLatin1String(name), new QLineEdit);
  }
  rows->addRow(new QPushButton(QStringLiteral("Conectar")));
  dialog.show();
  return QApplication::exec();
}

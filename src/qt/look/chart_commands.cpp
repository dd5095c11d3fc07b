#include "qt/look/chart_commands.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QSaveFile>

#include "qt/look/small_widgets.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

void TellRefusal(const QString& path, QWidget* parent) {
  auto* box = new QMessageBox(parent);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowTitle(QStringLiteral("Guardar imagen"));
  box->setIcon(QMessageBox::Warning);
  box->setTextFormat(Qt::PlainText);
  box->setText(QStringLiteral("La imagen no se ha podido guardar en\n%1").arg(path));
  box->addButton(QStringLiteral("&Aceptar"), QMessageBox::AcceptRole);
  box->open();
}

}  // namespace

void FillMenu(QMenu& menu, const ChartCommands& commands) {
  for (const ChartCommand& command : commands) {
    QAction* action = menu.addAction(command.caption);
    action->setShortcut(command.key);
    action->setEnabled(command.enabled);
    action->setCheckable(command.checkable);
    action->setChecked(command.checked);
    QObject::connect(action, &QAction::triggered, &menu, command.run);
  }
}

QWidget* MakeChartBar(const std::function<ChartCommands()>& commands, QWidget* parent) {
  auto* bar = new Band(Qt::TopEdge, tone::kWindow, parent);
  bar->setFixedHeight(kChartBarHeight);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(6, 1, 6, 0);
  row->setSpacing(4);
  const ChartCommands all = commands();
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (all[i].button.isEmpty()) continue;
    auto* button = new QPushButton(all[i].button, bar);
    button->setAutoDefault(false);
    button->setFont(SmallFont());
    button->setFixedHeight(24);
    button->setMinimumWidth(0);
    const QString key = all[i].key.toString(QKeySequence::NativeText);
    const QString tip = QString(all[i].caption).remove(u'&');
    button->setToolTip(key.isEmpty() ? tip : tip + QStringLiteral(" (%1)").arg(key));
    button->setAccessibleName(tip);
    QObject::connect(button, &QPushButton::clicked, bar, [&commands, i] {
      const ChartCommands now = commands();
      if (i < now.size() && now[i].enabled) now[i].run();
    });
    row->addWidget(button);
  }
  row->addStretch();
  return bar;
}

void AskToSave(const QPixmap& picture, const QString& name, QWidget* parent) {
  auto* dialog = new QFileDialog(parent, QStringLiteral("Guardar imagen"),
                                 QCoreApplication::applicationDirPath(),
                                 QStringLiteral("Imágenes PNG (*.png)"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setOption(QFileDialog::DontUseNativeDialog);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(QStringLiteral("png"));
  dialog->selectFile(name);
  QObject::connect(dialog, &QFileDialog::fileSelected, parent,
                   [picture, parent](const QString& path) {
                     if (!SavePicture(picture, path)) TellRefusal(path, parent);
                   });
  dialog->open();
}

bool SavePicture(const QPixmap& picture, const QString& path) {
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit();
}

}  // namespace qt

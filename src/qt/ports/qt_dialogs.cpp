#include "qt/ports/qt_dialogs.h"

#include <initializer_list>
#include <utility>

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace qt {
namespace {

constexpr int kMostCharacters = 2000;
constexpr int kMostLines = 30;
constexpr int kLongWord = 60;
constexpr QChar kBreakHere(0x200B);
constexpr QChar kEllipsis(0x2026);

struct Answer {
  const char* caption;
  QMessageBox::ButtonRole role;
};

/// A box without one could come up behind the windows that it locks.
QWidget* WindowBelow() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible() && !widget->isMinimized()) return widget;
  }
  return nullptr;
}

/// The role of the answer; closing the box is the last one.
QMessageBox::ButtonRole Run(QMessageBox::Icon icon, std::string_view text,
                            std::initializer_list<Answer> answers) {
  // Its parent may be closed, and it with its parent, while it waits.
  const QPointer<QMessageBox> box = new QMessageBox(WindowBelow());
  box->setWindowTitle(QStringLiteral("Cotirama Brizna 4.1"));
  box->setIcon(icon);
  box->setTextFormat(Qt::PlainText);
  box->setText(BoxText(text));
  for (const auto& [caption, role] : answers) {
    QPushButton* button = box->addButton(QString::fromUtf8(caption), role);
    if (!box->defaultButton()) box->setDefaultButton(button);
    box->setEscapeButton(button);
  }
  box->exec();
  if (!box) return QMessageBox::NoRole;
  const QMessageBox::ButtonRole chosen = box->buttonRole(box->clickedButton());
  delete box;
  return chosen;
}

}  // namespace

void QtDialogs::Message(std::string_view text) {
  Run(QMessageBox::Information, text, {{"&Aceptar", QMessageBox::AcceptRole}});
}

bool QtDialogs::Ask(std::string_view text) {
  return Run(QMessageBox::Question, text,
             {{"&Sí", QMessageBox::YesRole}, {"&No", QMessageBox::NoRole}}) == QMessageBox::YesRole;
}

std::string QtDialogs::Input(std::string_view) { return {}; }

void QtDialogs::Dismiss() {}

QString BoxText(std::string_view text) {
  QString plain = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  QString shown;
  int characters = 0, lines = 1, word = 0;
  for (QChar c : std::as_const(plain)) {
    if (c == u'\r') c = u'\n';
    if (c.unicode() < u' ' && c != u'\n') c = u' ';
    if (!c.isLowSurrogate()) {
      if (++characters > kMostCharacters || (c == u'\n' && ++lines > kMostLines)) {
        return shown + kEllipsis;
      }
      word = c.isSpace() ? 0 : word + 1;
      if (word % kLongWord == kLongWord - 1) shown += kBreakHere;
    }
    shown += c;
  }
  return shown;
}

}  // namespace qt

#include "qt/ports/qt_dialogs.h"

#include <initializer_list>
#include <utility>

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include "shell/mdi.h"

namespace qt {
namespace {

constexpr int kMostCharacters = 2000;
constexpr int kMostLines = 30;
constexpr int kLongWord = 60;
constexpr int kWidestPrompt = 560, kFieldWidth = 320, kControlHeight = 34;
constexpr const char* kTitle = shell::MDI::kCaption;
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

constexpr int kTitleButtons = 130;  // what a window manager may put beside the title

/// Wide enough for its title, whatever it holds.
int LeastWidth(const QWidget& box) {
  return box.fontMetrics().horizontalAdvance(box.windowTitle()) + kTitleButtons;
}

QMessageBox* MakeBox(QMessageBox::Icon icon, std::string_view text,
                     std::initializer_list<Answer> answers) {
  auto* box = new QMessageBox(WindowBelow());
  box->setWindowTitle(QString::fromUtf8(kTitle));
  box->setIcon(icon);
  box->setTextFormat(Qt::PlainText);
  box->setText(BoxText(text));
  for (const auto& [caption, role] : answers) {
    QPushButton* button = box->addButton(QString::fromUtf8(caption), role);
    if (!box->defaultButton()) box->setDefaultButton(button);
    box->setEscapeButton(button);
  }
  if (auto* grid = qobject_cast<QGridLayout*>(box->layout())) {
    // It keeps to the size that its layout asks for.
    grid->addItem(new QSpacerItem(LeastWidth(*box), 0), grid->rowCount(), 0, 1,
                  grid->columnCount());
  }
  return box;
}

QDialog* MakeInputBox(std::string_view text) {
  auto* box = new QDialog(WindowBelow());
  box->setWindowTitle(QString::fromUtf8(kTitle));
  auto* prompt = new QLabel(BoxText(text), box);
  prompt->setTextFormat(Qt::PlainText);
  prompt->setWordWrap(prompt->sizeHint().width() > kWidestPrompt);
  auto* field = new QLineEdit(box);
  field->setAccessibleName(prompt->text());
  field->setMinimumSize(kFieldWidth, kControlHeight);
  field->setTextMargins(6, 0, 6, 0);
  auto* buttons = new QDialogButtonBox(box);
  auto* accept = buttons->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
  buttons->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
  accept->setDefault(true);
  QObject::connect(buttons, &QDialogButtonBox::accepted, box, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, box, &QDialog::reject);

  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(20, 20, 20, 16);
  column->setSpacing(14);
  for (QWidget* widget : std::initializer_list<QWidget*>{prompt, field, buttons}) {
    column->addWidget(widget);
  }
  column->setSizeConstraint(QLayout::SetFixedSize);
  field->setFocus();
  return box;
}

QColorDialog* MakeColorBox(base::Color current) {
  auto* box = new QColorDialog(WindowBelow());
  box->setWindowTitle(QStringLiteral("Elegir color"));
  box->setCurrentColor(QColor::fromRgb(base::RgbOf(current)));
  return box;
}

}  // namespace

// There, among what is built in, nothing is found and nothing can be written.
QtDialogs::QtDialogs() {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral(":/settings"));
}

bool QtDialogs::Run(const QPointer<QDialog>& box) {
  open_.push_back(box);
  box->exec();
  open_.pop_back();
  return box;
}

void QtDialogs::Message(std::string_view text) {
  if (dismissed_) return;
  const QPointer<QDialog> box =
      MakeBox(QMessageBox::Information, text, {{"&Aceptar", QMessageBox::AcceptRole}});
  if (Run(box)) delete box;
}

bool QtDialogs::Ask(std::string_view text) {
  if (dismissed_) return false;
  QMessageBox* question = MakeBox(QMessageBox::Question, text,
                                  {{"&Sí", QMessageBox::YesRole}, {"&No", QMessageBox::NoRole}});
  const QPointer<QDialog> box = question;
  if (!Run(box)) return false;
  const bool yes = question->buttonRole(question->clickedButton()) == QMessageBox::YesRole;
  delete box;
  return yes;
}

std::string QtDialogs::Input(std::string_view text) {
  if (dismissed_) return {};
  const QPointer<QDialog> box = MakeInputBox(text);
  if (!Run(box)) return {};
  std::string typed;
  if (box->result() == QDialog::Accepted) {
    typed = box->findChild<QLineEdit*>()->text().toStdString();
  }
  delete box;
  return typed;
}

std::optional<base::Color> QtDialogs::Color(base::Color current) {
  if (dismissed_) return std::nullopt;
  QColorDialog* picker = MakeColorBox(current);
  const QPointer<QDialog> box = picker;
  if (!Run(box)) return std::nullopt;
  const QColor chosen = picker->selectedColor();  // none when given up
  delete box;
  if (!chosen.isValid()) return std::nullopt;
  return base::ColorOfRgb(chosen.rgb());
}

void QtDialogs::Dismiss() {
  dismissed_ = true;
  for (const QPointer<QDialog>& box : open_) {
    if (box) box->done(QDialog::Rejected);
  }
}

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

#include "qt/look/dir_box.h"

#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QKeyEvent>

#include "qt/look/form_parts.h"
#include "qt/look/portfolio_parts.h"
#include "qt/look/text.h"

namespace qt {
namespace {

constexpr int kLeastPath = 180;

/// Keeps Enter from the default button of the dialog.
class PathField : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    QLineEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) event->accept();
  }
};

}  // namespace

DirBoxWidget::DirBoxWidget(platform::DirBox& box, QWidget* parent)
    : QWidget(parent),
      box_(&box),
      field_(new PathField(this)),
      browse_(new QPushButton(QStringLiteral("E&xaminar..."), this)),
      note_(QuietLabel({}, SmallFont(), this)) {
  auto* form = new QGridLayout(this);
  form->setContentsMargins(0, 0, 0, 0);
  form->setHorizontalSpacing(8);
  form->setVerticalSpacing(3);
  field_->setMinimumSize(kLeastPath, kFieldHeight);
  field_->setTextMargins(6, 0, 6, 0);
  field_->setPlaceholderText(QStringLiteral("Ninguno todavía"));
  browse_->setMinimumSize(104, kFieldHeight);
  browse_->setAccessibleName(QStringLiteral("Examinar..."));
  note_->setContentsMargins(8, 0, 0, 0);
  note_->setMinimumHeight(note_->fontMetrics().height());
  form->addWidget(field_, 0, 0);
  form->addWidget(browse_, 0, 1);
  form->addWidget(note_, 1, 0, 1, 2);
  setFocusProxy(field_);
  connect(field_, &QLineEdit::editingFinished, this, [this] { Commit(); });
  connect(field_, &QLineEdit::textEdited, this, [this] { Refuse({}); });
  connect(browse_, &QPushButton::clicked, this, &DirBoxWidget::Browse);
}

bool DirBoxWidget::Commit() {
  if (!box_) return false;
  if (field_->text() != shown_) return Choose(field_->text().trimmed());
  Refuse({});
  return true;
}

bool DirBoxWidget::Choose(const QString& path) {
  if (!box_) return false;
  if (!box_->set_path(path.toStdString())) {
    Refuse(QStringLiteral("No hay ningún directorio con esa ruta."));
    return false;
  }
  ShowPath();
  return true;
}

void DirBoxWidget::Refresh() {
  if (box_ && Text(box_->path()) != shown_) ShowPath();
}

void DirBoxWidget::ShowPath() {
  shown_ = Text(box_->path());
  field_->setText(shown_);
  Refuse({});
  if (on_path) on_path();
}

void DirBoxWidget::Refuse(const QString& why) {
  ShowNote(*note_, why, tone::kAlert);
  field_->setAccessibleDescription(why);
}

void DirBoxWidget::Browse() {
  if (!box_) return;
  // Goes with this widget at the latest.
  auto* dialog = new QFileDialog(this, QStringLiteral("Elegir directorio"),
                                 box_->path().empty() ? QDir::homePath() : Text(box_->path()));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setOption(QFileDialog::DontUseNativeDialog);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  dialog->setOption(QFileDialog::ReadOnly);
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setViewMode(QFileDialog::List);
  dialog->setLabelText(QFileDialog::Accept, QStringLiteral("&Elegir"));
  connect(dialog, &QFileDialog::fileSelected, this, &DirBoxWidget::Choose);
  connect(dialog, &QDialog::finished, field_, [field = field_] { field->setFocus(); });
  dialog->open();
}

void DirBoxWidget::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (box_ && !event->spontaneous()) ShowPath();
}

}  // namespace qt

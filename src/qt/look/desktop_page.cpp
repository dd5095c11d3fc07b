#include "qt/look/desktop_page.h"

#include <QDesktopServices>
#include <QVBoxLayout>

#include "qt/look/small_widgets.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kMargin = 24, kGap = 12, kShown = 500;

QLabel* WrappedLabel(const QFont& font, QWidget* parent) {
  QLabel* label = QuietLabel({}, font, parent);
  label->setWordWrap(true);
  return label;
}

// An address has no blanks at which a label would break it.
QString Breakable(const QString& address) {
  QString text = OneLine(address.left(kShown));
  for (qsizetype at = text.size() - 1; at > 0; --at) {
    if (QStringLiteral("/?&=").contains(text[at])) text.insert(at + 1, QChar(0x200B));
  }
  return text;
}

}  // namespace

DesktopPage::DesktopPage(QWidget* parent)
    : QWidget(parent),
      what_(WrappedLabel(TextFont(), this)),
      where_(WrappedLabel(StrongFont(), this)),
      again_(new QPushButton(QStringLiteral("Abrir &otra vez"), this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kGap);
  column->addWidget(what_);
  column->addWidget(where_);
  column->addWidget(again_, 0, Qt::AlignLeft);
  column->addStretch();
  again_->setEnabled(false);
  again_->setMinimumSize(128, 34);
  what_->setText(QStringLiteral("Las páginas se abren en el navegador del escritorio."));
  connect(again_, &QPushButton::clicked, this, [this] { Open(address_); });
  setFocusProxy(again_);
}

void DesktopPage::Open(const QUrl& address) {
  address_ = address;
  again_->setEnabled(true);
  where_->setText(Breakable(address.toDisplayString()));
  const bool opened = QDesktopServices::openUrl(address);
  what_->setText(opened
                     ? QStringLiteral("El visor de páginas no está disponible en este equipo: la "
                                      "página se ha abierto en el navegador del escritorio.")
                     : QStringLiteral("Ni el visor de páginas ni un navegador del escritorio "
                                      "están disponibles en este equipo para abrir la página."));
}

}  // namespace qt

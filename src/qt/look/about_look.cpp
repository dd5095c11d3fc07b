#include <QPainter>
#include <QVBoxLayout>

#include "qt/look/form_parts.h"
#include "qt/look/pictures.h"
#include "qt/look/service_looks.h"
#include "qt/look/text.h"

namespace qt {
namespace {

constexpr int kMarkSide = 72, kTextWidth = 340;

class Mark : public QWidget {
 public:
  explicit Mark(QWidget* parent) : QWidget(parent) { setFixedSize(kMarkSide, kMarkSide); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    DrawMark(painter, rect());
  }
};

}  // namespace

Look MakeAboutLook(services::Sobre& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* column = new QVBoxLayout(dialog);
  column->setContentsMargins(24, 24, 24, 20);
  column->setSpacing(20);
  column->setSizeConstraint(QLayout::SetFixedSize);

  auto* row = new QHBoxLayout;
  row->setSpacing(22);
  row->addWidget(new Mark(dialog), 0, Qt::AlignTop);
  auto* label = new QLabel(dialog);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setFixedWidth(kTextWidth);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  binders->Follow(window.Label1, *label,
                  [&window, label] { label->setText(Text(window.Label1.caption())); });
  row->addWidget(label);
  column->addLayout(row);

  auto* buttons = new QHBoxLayout;
  auto* close = new QPushButton(QStringLiteral("Cerrar"), dialog);
  close->setMinimumSize(104, kFieldHeight);
  close->setDefault(true);
  QObject::connect(close, &QPushButton::clicked, binders->context(),
                   [&window] { window.UserClose(); });
  buttons->addStretch();
  buttons->addWidget(close);
  column->addLayout(buttons);
  close->setFocus();
  return LookOf(dialog, binders);
}

}  // namespace qt

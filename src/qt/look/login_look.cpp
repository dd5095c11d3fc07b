#include "qt/look/login_look.h"

#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

#include "qt/look/form_parts.h"
#include "qt/look/pictures.h"
#include "qt/look/small_widgets.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kHeadHeight = 104, kWidth = 420;

/// Mark, name and a quiet price line.
class Head : public QWidget {
 public:
  explicit Head(QWidget* parent) : QWidget(parent) { setFixedHeight(kHeadHeight); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient ground(0, 0, width(), height());
    ground.setColorAt(0, QColor(0x12, 0x4a, 0x5a));
    ground.setColorAt(1, QColor(0x0c, 0x1c, 0x2c));
    painter.fillRect(rect(), ground);
    DrawLine(painter);
    DrawMark(painter, QRectF(26, 26, 52, 52));
    painter.setPen(Qt::white);
    painter.setFont(TitleFont());
    painter.drawText(QRectF(94, 26, width() - 110, 30), Qt::AlignVCenter,
                     QStringLiteral("Cotirama Brizna"));
    painter.setPen(QColor(255, 255, 255, 175));
    painter.setFont(TextFont());
    painter.drawText(QRectF(94, 56, width() - 110, 20), Qt::AlignVCenter,
                     QStringLiteral("La bolsa en tiempo real"));
  }

 private:
  void DrawLine(QPainter& painter) const {
    static constexpr double kSteps[] = {0.92, 0.84, 0.88, 0.66, 0.74, 0.52, 0.6, 0.38, 0.44, 0.18};
    const double from = width() * 0.42, step = (width() - from) / (std::size(kSteps) - 1);
    QPainterPath path(QPointF(from, height() * kSteps[0]));
    for (std::size_t i = 1; i < std::size(kSteps); ++i) {
      path.lineTo(from + step * static_cast<double>(i), height() * kSteps[i]);
    }
    painter.setPen(QPen(QColor(63, 193, 176, 70), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    path.lineTo(width(), height());
    path.lineTo(from, height());
    painter.fillPath(path, QColor(63, 193, 176, 18));
  }
};

}  // namespace

Look MakeLoginLook(feed::Conecta& conecta, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* column = new QVBoxLayout(dialog);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->setSizeConstraint(QLayout::SetFixedSize);
  auto* head = new Head(dialog);
  head->setFixedWidth(kWidth);
  column->addWidget(head);

  auto* form = new QGridLayout;
  form->setContentsMargins(26, 24, 26, 0);
  form->setHorizontalSpacing(14);
  form->setVerticalSpacing(12);
  column->addLayout(form);
  const auto add = [&](int row, platform::TextBox& box, const QString& hint) {
    auto* label = QuietLabel(Text(box.label()), TextFont(), dialog);
    auto* field = AddField(*form, row, label, box, *binders);
    field->setPlaceholderText(hint);
    return field;
  };
  auto* login = add(0, conecta.Text1, QStringLiteral("4 a 7 caracteres"));
  add(1, conecta.Text2, QStringLiteral("4 a 7 caracteres"));
  add(2, conecta.Text3, Text(feed::Conecta::kServidorPropio));
  auto* hint = QuietLabel(
      QStringLiteral(
          "Sin IP se abre «demostracion», un mercado simulado que va dentro del programa. "
          "Vale cualquier LOGIN y PASSWORD de 4 a 7 caracteres."),
      SmallFont(), dialog);
  hint->setWordWrap(true);
  form->addWidget(hint, 3, 1);

  auto* buttons = new QHBoxLayout;
  buttons->setContentsMargins(26, 20, 26, 24);
  auto* connect = new QPushButton(dialog);
  auto* minimize = new QPushButton(dialog);
  connect->setDefault(true);
  connect->setMinimumSize(140, 36);
  connect->setFont(StrongFont());
  minimize->setAutoDefault(false);
  minimize->setFixedSize(36, 36);
  buttons->addStretch();
  buttons->addWidget(minimize);
  buttons->addSpacing(8);
  buttons->addWidget(connect);
  column->addLayout(buttons);
  binders->Bind(conecta.Command2, *connect);
  binders->Bind(conecta.Command1, *minimize);
  QWidget::setTabOrder(connect, minimize);
  login->setFocus();
  return LookOf(dialog, binders);
}

}  // namespace qt

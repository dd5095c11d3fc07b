#include "qt/look/small_widgets.h"

#include <QMouseEvent>
#include <QPainter>

#include "qt/look/pictures.h"
#include "qt/look/theme.h"

namespace qt {

LabelWidget::LabelWidget(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void LabelWidget::set_ground(const QColor& ground) {
  if (ground == ground_) return;
  ground_ = ground;
  update();
}

void LabelWidget::paintEvent(QPaintEvent* event) {
  if (ground_.alpha() > 0) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground_);
    painter.drawRoundedRect(rect(), 5, 5);
  }
  QLabel::paintEvent(event);
}

void LabelWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (on_click && rect().contains(event->position().toPoint())) on_click();
}

void LabelWidget::mouseDoubleClickEvent(QMouseEvent*) {
  if (on_double_click) on_double_click();
}

PictureWidget::PictureWidget(QWidget* parent) : QAbstractButton(parent) {
  setCursor(Qt::PointingHandCursor);
  setFixedSize(kSide, kSide);
}

void PictureWidget::set_picture(platform::Picture picture) {
  if (picture == picture_) return;
  picture_ = picture;
  update();
}

void PictureWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (hasFocus() || underMouse() || isDown()) {
    painter.setPen(hasFocus() ? tone::kAccent : Qt::transparent);
    painter.setBrush(isDown() ? tone::kLine : tone::kRaised);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
  }
  DrawPicture(painter, QRectF(rect()).adjusted(3, 3, -3, -3), picture_);
}

QLabel* QuietLabel(const QString& text, const QFont& font, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setFont(font);
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, tone::kMuted);
  label->setPalette(palette);
  return label;
}

}  // namespace qt

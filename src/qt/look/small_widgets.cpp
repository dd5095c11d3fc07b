#include "qt/look/small_widgets.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "qt/look/ink.h"
#include "qt/look/pictures.h"
#include "qt/look/style_parts.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

/// Tells a label that can be pressed as a link.
class LinkInterface : public QAccessibleWidget {
 public:
  explicit LinkInterface(LabelWidget& label)
      : QAccessibleWidget(&label, QAccessible::Link), label_(label) {}

  [[nodiscard]] QStringList actionNames() const override {
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& name) override {
    if (name != pressAction()) return QAccessibleWidget::doAction(name);
    if (label_.isEnabled() && label_.on_click) label_.on_click();
  }

 private:
  LabelWidget& label_;
};

QAccessibleInterface* LinkOf(const QString& name, QObject* object) {
  // By its class first: the web view brings objects that have no type at run time.
  if (name != QLatin1String("QLabel")) return nullptr;
  auto* label = dynamic_cast<LabelWidget*>(object);
  return label && label->pressable() ? new LinkInterface(*label) : nullptr;
}

}  // namespace

LabelWidget::LabelWidget(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  laid_.setTextFormat(Qt::PlainText);
}

void LabelWidget::ShowText(const QString& text) {
  if (text == this->text()) return;
  setText(text);
  update();  // Qt's own stops at the margins
}

void LabelWidget::set_colors(const QColor& ink, const QColor& ground) {
  if (ink == ink_ && ground == ground_) return;
  ink_ = ink;
  ground_ = ground;
  update();
}

void LabelWidget::set_edge(const QColor& edge) {
  edge_ = edge;
  update();
}

void LabelWidget::set_blank_mark(const QString& mark) {
  blank_mark_ = mark;
  update();
}

void LabelWidget::set_pressable(bool pressable) {
  pressable_ = pressable;
  setFocusPolicy(pressable ? Qt::TabFocus : Qt::NoFocus);
  setAttribute(Qt::WA_Hover, pressable);
  if (!pressable) return unsetCursor();
  setCursor(Qt::PointingHandCursor);
  QAccessible::installFactory(LinkOf);
}

bool LabelWidget::Lit() const { return pressable_ && underMouse() && isEnabled(); }

void LabelWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (ground_.isValid()) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground_);
    painter.drawRoundedRect(rect(), kRadius, kRadius);
  }
  DrawEdge(painter);
  const bool blank = text().trimmed().isEmpty();
  const QString shown = blank ? blank_mark_ : text();
  if (shown.isEmpty()) return;
  if (shown != laid_.text()) laid_.setText(shown);
  laid_.prepare({}, font());
  const QColor ground = ground_.isValid() ? ground_ : palette().color(QPalette::Window);
  if (blank) {
    painter.setPen(Mix(ground, ground.lightness() < 128 ? Qt::white : Qt::black, 0.3));
    return DrawLaid(painter);
  }
  const QColor plain = ink_.isValid() ? ink_ : palette().color(foregroundRole());
  const QColor ink = Lit() && !edge_.isValid() ? tone::kAccent : plain;
  DrawReadable(painter, ink, ground, [&] { DrawLaid(painter); });
}

void LabelWidget::DrawEdge(QPainter& painter) const {
  const bool focus = pressable_ && hasFocus();
  const auto draw = [&](double inward, const QColor& line) {
    DrawRounded(painter, QRectF(rect()).adjusted(inward, inward, -inward, -inward), Qt::transparent,
                line, kRadius - inward);
  };
  if (!edge_.isValid()) return focus ? draw(0, tone::kAccent) : void();
  draw(0, focus || Lit() ? tone::kAccent : edge_);
  if (!focus) return;
  // Told from a ground of any colour.
  draw(1, tone::kAccent);
  draw(2, tone::kWindow);
}

// Narrower rather than cut: half a number is another number.
void LabelWidget::DrawLaid(QPainter& painter) const {
  const QRectF room = contentsRect();
  const QSizeF size = laid_.size();
  const double factor = size.width() > room.width() ? room.width() / size.width() : 1;
  const QSizeF fitted = size * factor;
  const Qt::Alignment align = blank_mark_ == laid_.text() ? Qt::AlignCenter : alignment();
  double left = room.left();
  if (align & Qt::AlignRight) left = room.right() - fitted.width();
  if (align & Qt::AlignHCenter) left = room.center().x() - fitted.width() / 2;
  painter.save();
  painter.setFont(font());
  painter.translate(left, room.center().y() - fitted.height() / 2);
  painter.scale(factor, factor);
  painter.drawStaticText(QPointF(), laid_);
  painter.restore();
}

void LabelWidget::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
  if (!pressable_ || !presses) return QLabel::keyPressEvent(event);
  if (!event->isAutoRepeat() && on_click) on_click();
}

// Past the label's own, which would make it a text to be edited.
void LabelWidget::focusInEvent(QFocusEvent* event) { QFrame::focusInEvent(event); }
void LabelWidget::focusOutEvent(QFocusEvent* event) { QFrame::focusOutEvent(event); }

void LabelWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && on_click && rect().contains(event->position().toPoint()))
    on_click();
}

void LabelWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && on_double_click) on_double_click();
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

Band::Band(Qt::Edge line, const QColor& ground, QWidget* parent)
    : QWidget(parent), line_(line), ground_(ground) {}

void Band::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ground_);
  painter.fillRect(0, line_ == Qt::TopEdge ? 0 : height() - 1, width(), 1, tone::kLine);
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

#include "qt/look/desk_area.h"

#include <QPainter>

#include "qt/look/pictures.h"
#include "qt/look/theme.h"

namespace qt {

DeskArea::DeskArea(QWidget* parent) : QMdiArea(parent) {
  // What was left last comes back when a window closes.
  setActivationOrder(ActivationHistoryOrder);
  // A ticket that is opened over a maximised board stays a ticket.
  setOption(DontMaximizeSubWindowOnActivation);
  setBackground(tone::kGround);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setAccessibleName(QStringLiteral("Ventanas"));
}

void DeskArea::paintEvent(QPaintEvent* event) {
  QMdiArea::paintEvent(event);
  QPainter painter(viewport());
  painter.setRenderHint(QPainter::Antialiasing);
  const QPointF middle = QRectF(viewport()->rect()).center();
  painter.save();
  painter.setOpacity(0.55);
  DrawMark(painter, QRectF(middle.x() - 36, middle.y() - 100, 72, 72));
  painter.restore();
  const auto line = [&](double top, const QFont& font, const QColor& ink, const QString& text) {
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QRectF(0, middle.y() + top, viewport()->width(), 48),
                     Qt::AlignHCenter | Qt::AlignTop, text);
  };
  line(-12, TitleFont(), Mix(tone::kGround, tone::kText, 0.55), QStringLiteral("Cotirama Brizna"));
  line(28, TextFont(), Mix(tone::kGround, tone::kMuted, 0.75),
       QStringLiteral(
           "El menú Instrumentos abre el mercado; la luz de sesión conecta y desconecta"));
}

}  // namespace qt

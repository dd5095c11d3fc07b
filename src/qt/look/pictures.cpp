#include "qt/look/pictures.h"

#include <QPainterPath>
#include <QRadialGradient>

#include "qt/look/theme.h"

namespace qt {
namespace {

void Light(QPainter& painter, const QColor& color) {
  QRadialGradient glow(12, 12, 11);
  QColor edge = color;
  glow.setColorAt(0.55, [&] {
    edge.setAlpha(110);
    return edge;
  }());
  glow.setColorAt(1, [&] {
    edge.setAlpha(0);
    return edge;
  }());
  painter.setPen(Qt::NoPen);
  painter.setBrush(glow);
  painter.drawEllipse(QPointF(12, 12), 11, 11);
  QRadialGradient bulb(10, 9.5, 9);
  bulb.setColorAt(0, Mix(color, Qt::white, 0.55));
  bulb.setColorAt(1, color);
  painter.setBrush(bulb);
  painter.drawEllipse(QPointF(12, 12), 6.2, 6.2);
}

// What a lamp tells by its colour it also tells by a sign: a tick, a falling arrow, a cross.
void Sign(QPainter& painter, const QPolygonF& line, const QPolygonF& second = {}) {
  painter.setPen(QPen(QColor(0, 0, 0, 190), 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(line);
  if (!second.isEmpty()) painter.drawPolyline(second);
}

void Server(QPainter& painter) {
  painter.setPen(QPen(tone::kMuted, 1.5));
  painter.setBrush(tone::kRaised);
  for (const double top : {3.5, 13.5}) {
    painter.drawRoundedRect(QRectF(3, top, 18, 7.5), 2, 2);
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(tone::kGood);
    painter.drawEllipse(QPointF(7, top + 3.75), 1.5, 1.5);
    painter.setBrush(tone::kMuted);
    painter.drawRoundedRect(QRectF(11, top + 3, 7, 1.6), 0.8, 0.8);
    painter.restore();
  }
}

template <typename Draw>
QIcon IconOf(Draw draw) {
  QIcon icon;
  for (const int side : {16, 32, 64}) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    draw(painter, QRectF(0, 0, side, side));
    icon.addPixmap(pixmap);
  }
  return icon;
}

void Chevrons(QPainter& painter) {
  painter.setPen(QPen(tone::kText, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  for (const double left : {5.0, 12.0}) {
    painter.drawPolyline(QPolygonF({{left, 6}, {left + 6, 12}, {left, 18}}));
  }
}

}  // namespace

void OnGrid24(QPainter& painter, const QRectF& rect, const std::function<void(QPainter&)>& draw) {
  const double side = qMin(rect.width(), rect.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(rect.center() - QPointF(side / 2, side / 2));
  painter.scale(side / 24, side / 24);
  draw(painter);
  painter.restore();
}

void DrawPicture(QPainter& painter, const QRectF& rect, platform::Picture picture) {
  OnGrid24(painter, rect, [picture](QPainter& p) {
    switch (picture) {
      case platform::Picture::connected:
        Light(p, tone::kGood);
        return Sign(p, QPolygonF({{9.3, 12.3}, {11.3, 14.3}, {14.8, 9.9}}));
      case platform::Picture::receiving:
        Light(p, tone::kBusy);
        return Sign(p, QPolygonF(QList<QPointF>{{12, 8.8}, {12, 15}}),
                    QPolygonF({{9.5, 12.6}, {12, 15.1}, {14.5, 12.6}}));
      case platform::Picture::closed:
        Light(p, tone::kBad);
        return Sign(p, QPolygonF(QList<QPointF>{{9.8, 9.8}, {14.2, 14.2}}),
                    QPolygonF(QList<QPointF>{{14.2, 9.8}, {9.8, 14.2}}));
      case platform::Picture::server:
        return Server(p);
      case platform::Picture::none:
        return;
    }
  });
}

void DrawMark(QPainter& painter, const QRectF& rect) {
  OnGrid24(painter, rect, [](QPainter& p) {
    QLinearGradient ground(0, 0, 24, 24);
    ground.setColorAt(0, QColor(0x1d, 0x5f, 0x72));
    ground.setColorAt(1, QColor(0x0d, 0x2b, 0x3e));
    p.setPen(Qt::NoPen);
    p.setBrush(ground);
    p.drawRoundedRect(QRectF(0.5, 0.5, 23, 23), 5.5, 5.5);
    // A blade of grass bent by the wind, which is also a rising price.
    QPainterPath blade(QPointF(4.5, 18.5));
    blade.cubicTo(8, 18, 9, 10.5, 12, 12.5);
    blade.cubicTo(14.5, 14.2, 15, 7.5, 20, 5);
    p.setPen(QPen(tone::kAccent, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(blade);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(19.6, 5.2), 1.9, 1.9);
  });
}

QIcon ProgramIcon() {
  return IconOf([](QPainter& painter, const QRectF& rect) { DrawMark(painter, rect); });
}

QIcon MoreIcon() {
  return IconOf([](QPainter& painter, const QRectF& rect) { OnGrid24(painter, rect, Chevrons); });
}

QIcon SignIcon(QChar sign, const QColor& color) {
  return IconOf([sign, color](QPainter& painter, const QRectF& rect) {
    OnGrid24(painter, rect, [sign, color](QPainter& p) {
      p.setPen(Qt::NoPen);
      p.setBrush(color);
      p.drawEllipse(QPointF(12, 12), 11, 11);
      QFont font = TitleFont();
      font.setPixelSize(16);
      p.setFont(font);
      p.setPen(tone::kGround);
      p.drawText(QRectF(0, 0, 24, 24), Qt::AlignCenter, QString(sign));
    });
  });
}

}  // namespace qt

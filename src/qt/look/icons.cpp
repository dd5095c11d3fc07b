#include "qt/look/icons.h"

#include <QIconEngine>
#include <QPainterPath>

#include "qt/look/pictures.h"
#include "qt/look/service_icons.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

using platform::Icon;

QPen Line(const QColor& color, double width = 1.7) {
  return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void Table(QPainter& painter) {
  painter.setPen(QPen(tone::kText, 1.6));
  painter.drawRoundedRect(QRectF(3, 4, 18, 16), 2, 2);
  painter.drawLine(QPointF(3, 9), QPointF(21, 9));
  painter.setPen(QPen(tone::kGood, 2));
  painter.drawLine(QPointF(6, 12.8), QPointF(11, 12.8));
  painter.drawLine(QPointF(14, 12.8), QPointF(18, 12.8));
  painter.setPen(QPen(tone::kBad, 2));
  painter.drawLine(QPointF(6, 16.6), QPointF(11, 16.6));
  painter.drawLine(QPointF(14, 16.6), QPointF(18, 16.6));
}

/// A bell on a square of `side` units at `corner`.
void Bell(QPainter& painter, QPointF corner, double side) {
  painter.save();
  painter.translate(corner);
  painter.scale(side / 24, side / 24);
  QPainterPath body(QPointF(3.5, 18));
  body.cubicTo(7, 15.5, 5.5, 12.5, 6, 9.5);
  body.cubicTo(6.6, 6, 9, 4.2, 12, 4.2);
  body.cubicTo(15, 4.2, 17.4, 6, 18, 9.5);
  body.cubicTo(18.5, 12.5, 17, 15.5, 20.5, 18);
  body.closeSubpath();
  painter.setPen(Line(tone::kAlert, 1.4));
  painter.setBrush(tone::kAlert);
  painter.drawPath(body);
  painter.drawEllipse(QPointF(12, 3.3), 1.1, 1.1);
  painter.setPen(Line(tone::kAlert, 2.2));
  painter.drawLine(QPointF(10.4, 21), QPointF(13.6, 21));
  painter.restore();
}

void RingingBell(QPainter& painter) {
  Bell(painter, {2.5, 2.5}, 19);
  painter.setPen(Line(tone::kText, 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawArc(QRectF(0.9, 4, 8, 8), 120 * 16, 80 * 16);
  painter.drawArc(QRectF(15.1, 4, 8, 8), -20 * 16, 80 * 16);
}

/// A bell in the upper left, and what it watches below on the right.
void PriceAlarm(QPainter& painter) {
  Bell(painter, {0, -0.5}, 15);
  painter.setPen(Line(tone::kGood, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF({{4, 21.5}, {10.5, 16.5}, {14, 19}, {21.5, 9.5}}));
  painter.drawPolyline(QPolygonF({{16.8, 9}, {21.8, 9}, {21.8, 14}}));
}

void VolumeAlarm(QPainter& painter) {
  Bell(painter, {0, -0.5}, 15);
  painter.setPen(Qt::NoPen);
  painter.setBrush(tone::kBusy);
  painter.drawRoundedRect(QRectF(8, 17.5, 3.6, 5), 0.8, 0.8);
  painter.drawRoundedRect(QRectF(13.2, 13, 3.6, 9.5), 0.8, 0.8);
  painter.drawRoundedRect(QRectF(18.4, 7.5, 3.6, 15), 0.8, 0.8);
}

/// Shares go one way and money the other.
void Trades(QPainter& painter) {
  painter.setPen(Line(tone::kGood, 2.2));
  painter.drawLine(QPointF(4, 8), QPointF(19.5, 8));
  painter.drawPolyline(QPolygonF({{15.5, 3.8}, {20, 8}, {15.5, 12.2}}));
  painter.setPen(Line(tone::kBad, 2.2));
  painter.drawLine(QPointF(4.5, 16.5), QPointF(20, 16.5));
  painter.drawPolyline(QPolygonF({{8.5, 12.3}, {4, 16.5}, {8.5, 20.7}}));
}

/// What an option earns: nothing up to its price, from there on all.
void Option(QPainter& painter) {
  painter.setPen(Line(tone::kMuted, 1.6));
  painter.drawPolyline(QPolygonF({{3.5, 3}, {3.5, 20.5}, {21, 20.5}}));
  painter.setPen(Line(tone::kAccent, 2.4));
  painter.drawPolyline(QPolygonF({{6, 16}, {12.5, 16}, {20, 5.5}}));
}

void Clock(QPainter& painter) {
  painter.setPen(Line(tone::kText, 1.7));
  painter.drawEllipse(QPointF(12, 12), 9, 9);
  painter.setPen(Line(tone::kBusy, 2));
  painter.drawPolyline(QPolygonF({{12, 6.6}, {12, 12}, {15.8, 14.4}}));
}

void Portfolio(QPainter& painter) {
  painter.setPen(Line(tone::kText, 1.6));
  painter.drawRoundedRect(QRectF(2.5, 7.5, 19, 13), 2, 2);
  painter.drawPolyline(QPolygonF({{8.3, 7.3}, {8.3, 3.8}, {15.7, 3.8}, {15.7, 7.3}}));
  painter.setPen(Line(tone::kGood, 2));
  painter.drawPolyline(QPolygonF({{6, 17}, {10.3, 12.6}, {13.3, 15.4}, {18, 11}}));
}

/// An arrow upwards where `by` is below 0, else downwards, from `from`.
void VerticalArrow(QPainter& painter, QPointF from, double by, double head) {
  const QPointF tip = from + QPointF(0, by);
  const double back = by < 0 ? head : -head;
  painter.drawLine(from, tip);
  painter.drawPolyline(QPolygonF({tip + QPointF(-head, back), tip, tip + QPointF(head, back)}));
}

/// A journal: two entries, one in and one out.
void Operations(QPainter& painter) {
  painter.setPen(Line(tone::kText, 1.7));
  painter.drawLine(QPointF(11.5, 4.8), QPointF(21, 4.8));
  painter.drawLine(QPointF(11.5, 9), QPointF(17.5, 9));
  painter.drawLine(QPointF(11.5, 15.2), QPointF(21, 15.2));
  painter.drawLine(QPointF(11.5, 19.4), QPointF(17.5, 19.4));
  painter.setPen(Line(tone::kGood, 1.9));
  VerticalArrow(painter, {5.3, 10.2}, -7, 2.7);
  painter.setPen(Line(tone::kBad, 1.9));
  VerticalArrow(painter, {5.3, 13.8}, 7, 2.7);
}

void Statistics(QPainter& painter) {
  painter.setPen(Line(tone::kMuted, 1.6));
  painter.drawLine(QPointF(2.5, 21), QPointF(21.5, 21));
  painter.setPen(Qt::NoPen);
  painter.setBrush(tone::kAccent);
  painter.drawRoundedRect(QRectF(3.8, 12.5, 4, 6.8), 0.8, 0.8);
  painter.drawRoundedRect(QRectF(10, 4, 4, 15.3), 0.8, 0.8);
  painter.drawRoundedRect(QRectF(16.2, 8.5, 4, 10.8), 0.8, 0.8);
}

void Operate(QPainter& painter) {
  painter.setPen(Line(tone::kGood, 2.4));
  VerticalArrow(painter, {7.3, 20}, -15.5, 4);
  painter.setPen(Line(tone::kBad, 2.4));
  VerticalArrow(painter, {16.7, 4}, 15.5, 4);
}

/// One line over the levels that it is measured by.
void Indices(QPainter& painter) {
  painter.setPen(Line(tone::kMuted, 1.2));
  for (const double level : {5.0, 12.0, 19.0}) {
    painter.drawLine(QPointF(2.5, level), QPointF(21.5, level));
  }
  painter.setPen(Line(tone::kGood, 2.3));
  painter.drawPolyline(QPolygonF({{3.5, 16.5}, {8.5, 9.5}, {12.8, 14}, {19.5, 5}}));
  painter.setPen(Qt::NoPen);
  painter.setBrush(tone::kGood);
  painter.drawEllipse(QPointF(19.8, 4.8), 2.2, 2.2);
}

/// A sheet of a calendar, and on to the day that counts.
void Futures(QPainter& painter) {
  painter.setPen(Line(tone::kText, 1.6));
  painter.drawRoundedRect(QRectF(3, 4.5, 18, 16), 2, 2);
  painter.drawLine(QPointF(3, 9.5), QPointF(21, 9.5));
  painter.drawLine(QPointF(8, 2.8), QPointF(8, 6));
  painter.drawLine(QPointF(16, 2.8), QPointF(16, 6));
  painter.setPen(Line(tone::kBusy, 2.2));
  painter.drawLine(QPointF(7, 15), QPointF(16.5, 15));
  painter.drawPolyline(QPolygonF({{13.8, 12}, {17, 15}, {13.8, 18}}));
}

void Currencies(QPainter& painter) {
  painter.setPen(Line(tone::kAlert, 1.7));
  painter.drawEllipse(QPointF(12, 12), 9.5, 9.5);
  painter.setPen(Line(tone::kAlert, 1.9));
  painter.drawArc(QRectF(8.6, 7, 10, 10), 52 * 16, 256 * 16);
  painter.drawLine(QPointF(6.4, 10.6), QPointF(13.2, 10.6));
  painter.drawLine(QPointF(6.4, 13.6), QPointF(12.6, 13.6));
}

/// What a painter mixes his colours on.
void Colors(QPainter& painter) {
  QPainterPath board(QPointF(12, 2.8));
  board.cubicTo(6.5, 2.8, 2.5, 7, 2.5, 12);
  board.cubicTo(2.5, 17.2, 6.8, 21.2, 11.6, 21.2);
  board.cubicTo(13.6, 21.2, 14.4, 19.8, 13.7, 18.2);
  board.cubicTo(12.8, 16, 13.8, 14.6, 16, 14.6);
  board.lineTo(18.4, 14.6);
  board.cubicTo(20.4, 14.6, 21.5, 13.2, 21.5, 11.2);
  board.cubicTo(21.5, 6.2, 17.2, 2.8, 12, 2.8);
  painter.setPen(Line(tone::kText, 1.6));
  painter.drawPath(board);
  painter.setPen(Qt::NoPen);
  const auto dab = [&painter](const QColor& color, double x, double y) {
    painter.setBrush(color);
    painter.drawEllipse(QPointF(x, y), 1.9, 1.9);
  };
  dab(tone::kBad, 6.7, 12.6);
  dab(tone::kAlert, 8.4, 7.7);
  dab(tone::kGood, 13.2, 6.4);
  dab(tone::kBusy, 17.4, 9.6);
}

/// A bar of prices: from low to high, with its opening on the left and its close on the right.
void PriceBar(QPainter& painter, double x, double high, double low, double open, double close) {
  painter.drawLine(QPointF(x, high), QPointF(x, low));
  painter.drawLine(QPointF(x - 2, open), QPointF(x, open));
  painter.drawLine(QPointF(x, close), QPointF(x + 2, close));
}

/// A folder that holds bars.
void Stores(QPainter& painter) {
  QPainterPath folder(QPointF(2.5, 18.5));
  folder.lineTo(2.5, 5.5);
  folder.quadTo(2.5, 4, 4, 4);
  folder.lineTo(8.6, 4);
  folder.lineTo(10.8, 6.6);
  folder.lineTo(20, 6.6);
  folder.quadTo(21.5, 6.6, 21.5, 8.1);
  folder.lineTo(21.5, 18.5);
  folder.quadTo(21.5, 20, 20, 20);
  folder.lineTo(4, 20);
  folder.quadTo(2.5, 20, 2.5, 18.5);
  painter.setPen(Line(tone::kAlert, 1.7));
  painter.drawPath(folder);
  painter.setPen(Line(tone::kGood, 1.8));
  PriceBar(painter, 8, 10.5, 17, 15, 12);
  painter.setPen(Line(tone::kBad, 1.8));
  PriceBar(painter, 15.5, 9.5, 16, 11, 14);
}

/// Bars that come down into a tray.
void History(QPainter& painter) {
  painter.setPen(Line(tone::kMuted, 1.7));
  painter.drawPolyline(QPolygonF({{3, 15.5}, {3, 20.5}, {21, 20.5}, {21, 15.5}}));
  painter.setPen(Line(tone::kGood, 1.8));
  PriceBar(painter, 5.5, 3, 11.5, 9.5, 5);
  painter.setPen(Line(tone::kBad, 1.8));
  PriceBar(painter, 18.5, 4, 12, 6, 10);
  painter.setPen(Line(tone::kBusy, 2.3));
  VerticalArrow(painter, {12, 4}, 12, 3.8);
}

class DrawnIcon : public QIconEngine {
 public:
  explicit DrawnIcon(Icon icon) : icon_(icon) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    DrawIcon(*painter, rect, icon_);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    DrawIcon(painter, QRect({}, size), icon_);
    return pixmap;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new DrawnIcon(icon_); }

 private:
  Icon icon_;
};

}  // namespace

void DrawIcon(QPainter& painter, const QRectF& rect, Icon icon) {
  OnGrid24(painter, rect, [icon](QPainter& p) {
    p.setBrush(Qt::NoBrush);
    switch (icon) {
      case Icon::board:
        return Table(p);
      case Icon::price_alarm:
        return PriceAlarm(p);
      case Icon::volume_alarm:
        return VolumeAlarm(p);
      case Icon::alarms:
        return RingingBell(p);
      case Icon::trades:
        return Trades(p);
      case Icon::options:
        return Option(p);
      case Icon::period:
        return Clock(p);
      case Icon::portfolio:
        return Portfolio(p);
      case Icon::operations:
        return Operations(p);
      case Icon::statistics:
        return Statistics(p);
      case Icon::operate:
        return Operate(p);
      case Icon::indices:
        return Indices(p);
      case Icon::futures:
        return Futures(p);
      case Icon::currencies:
        return Currencies(p);
      case Icon::colors:
        return Colors(p);
      case Icon::stores:
        return Stores(p);
      case Icon::history:
        return History(p);
      default:
        return DrawServiceIcon(p, icon);
    }
  });
}

QIcon IconFor(Icon icon) { return QIcon(new DrawnIcon(icon)); }

}  // namespace qt

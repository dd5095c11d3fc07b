#include "qt/look/service_icons.h"

#include <QPainterPath>

#include "qt/look/theme.h"

namespace qt {
namespace {

using platform::Icon;

QPen Line(const QColor& color, double width = 1.7) {
  return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// A sheet of paper with its corner turned down.
void Pages(QPainter& painter) {
  painter.setPen(Line(tone::kText, 1.6));
  painter.drawPolygon(QPolygonF({{4.5, 2.5}, {14.5, 2.5}, {19.5, 7.5}, {19.5, 21.5}, {4.5, 21.5}}));
  painter.drawPolyline(QPolygonF({{14.2, 2.8}, {14.2, 7.8}, {19.2, 7.8}}));
  painter.setPen(Line(tone::kAccent, 1.8));
  painter.drawLine(QPointF(8, 11.6), QPointF(16, 11.6));
  painter.drawLine(QPointF(8, 14.9), QPointF(16, 14.9));
  painter.drawLine(QPointF(8, 18.2), QPointF(12.5, 18.2));
}

void Globe(QPainter& painter) {
  painter.setPen(Line(tone::kBusy, 1.7));
  painter.drawEllipse(QPointF(12, 12), 9.5, 9.5);
  painter.setPen(Line(tone::kBusy, 1.4));
  painter.drawEllipse(QPointF(12, 12), 4.3, 9.5);
  painter.drawLine(QPointF(3.3, 8.6), QPointF(20.7, 8.6));
  painter.drawLine(QPointF(3.3, 15.4), QPointF(20.7, 15.4));
}

/// The cells of a spreadsheet, and room for a sign below on the right.
void Cells(QPainter& painter, const QColor& color) {
  painter.setPen(Line(color, 1.6));
  painter.drawPolyline(QPolygonF({{11, 18.5}, {2.5, 18.5}, {2.5, 3}, {21, 3}, {21, 10}}));
  painter.setPen(Line(color, 1.4));
  painter.drawLine(QPointF(2.5, 8), QPointF(21, 8));
  painter.drawLine(QPointF(2.5, 13.2), QPointF(11.5, 13.2));
  painter.drawLine(QPointF(8.3, 3), QPointF(8.3, 18.5));
  painter.drawLine(QPointF(14.6, 3), QPointF(14.6, 9.5));
}

void LiveSheet(QPainter& painter) {
  Cells(painter, tone::kText);
  painter.setPen(Line(tone::kGood, 1.6));
  painter.setBrush(tone::kGood);
  painter.drawPolygon(QPolygonF({{14, 12.5}, {21.3, 17.2}, {14, 21.9}}));
}

void QuietSheet(QPainter& painter) {
  Cells(painter, tone::kMuted);
  painter.setPen(Line(tone::kBad, 1.6));
  painter.setBrush(tone::kBad);
  painter.drawRoundedRect(QRectF(14, 13.8, 7.2, 7.2), 0.8, 0.8);
}

void Home(QPainter& painter) {
  painter.setPen(Line(tone::kText, 1.8));
  painter.drawPolyline(QPolygonF({{2.5, 12}, {12, 3}, {21.5, 12}}));
  painter.drawPolyline(QPolygonF({{5.5, 10.2}, {5.5, 20.8}, {18.5, 20.8}, {18.5, 10.2}}));
  painter.setPen(Qt::NoPen);
  painter.setBrush(tone::kAccent);
  painter.drawRoundedRect(QRectF(9.8, 13.6, 4.4, 6.4), 0.8, 0.8);
}

/// The house in which shares are traded.
void Exchange(QPainter& painter) {
  painter.setPen(Line(tone::kText, 1.6));
  painter.drawPolygon(QPolygonF({{12, 2.8}, {21, 8.3}, {3, 8.3}}));
  painter.drawLine(QPointF(2.5, 21), QPointF(21.5, 21));
  painter.setPen(Line(tone::kAccent, 2.2));
  for (const double column : {6.0, 12.0, 18.0}) {
    painter.drawLine(QPointF(column, 11.8), QPointF(column, 17.6));
  }
}

/// What is said, in `box`, its tip below at `tip`.
QPainterPath Bubble(const QRectF& box, double tip, double lean) {
  QPainterPath path;
  path.addRoundedRect(box, 3, 3);
  QPainterPath tail;
  tail.addPolygon(QPolygonF({{tip - 2.4, box.bottom() - 1},
                             {tip + lean, box.bottom() + 4},
                             {tip + 2.4, box.bottom() - 1}}));
  return path.united(tail).simplified();
}

/// One says something, another answers.
void Forum(QPainter& painter) {
  painter.setPen(Line(tone::kText, 1.6));
  painter.drawPath(Bubble({2.5, 2.5, 13, 9}, 6.5, -2));
  QPainterPath answer(QPointF(18.6, 8));
  answer.quadTo(21.5, 8, 21.5, 10.8);
  answer.lineTo(21.5, 15);
  answer.quadTo(21.5, 17.8, 19.4, 17.8);
  answer.lineTo(19.9, 21.6);
  answer.lineTo(15.4, 17.8);
  answer.lineTo(11.9, 17.8);
  answer.quadTo(9, 17.8, 9, 14.9);
  painter.setPen(Line(tone::kBusy, 1.8));
  painter.drawPath(answer);
}

void Chat(QPainter& painter) {
  painter.setPen(Line(tone::kText, 1.7));
  painter.drawPath(Bubble({2.5, 3.5, 19, 12.8}, 8, -2.5));
  painter.setPen(Qt::NoPen);
  painter.setBrush(tone::kGood);
  for (const double dot : {7.3, 12.0, 16.7}) painter.drawEllipse(QPointF(dot, 9.9), 1.6, 1.6);
}

void About(QPainter& painter) {
  painter.setPen(Line(tone::kBusy, 1.7));
  painter.drawEllipse(QPointF(12, 12), 9.3, 9.3);
  painter.setPen(Line(tone::kText, 2.4));
  painter.drawLine(QPointF(12, 11.4), QPointF(12, 16.8));
  painter.drawPoint(QPointF(12, 7.4));
}

/// Backward where `to` is -1, forward where it is 1.
void Arrow(QPainter& painter, double to) {
  painter.setPen(Line(tone::kText, 2.2));
  painter.drawLine(QPointF(12 - 8 * to, 12), QPointF(12 + 8 * to, 12));
  painter.drawPolyline(QPolygonF({{12 + 2 * to, 5.6}, {12 + 8.4 * to, 12}, {12 + 2 * to, 18.4}}));
}

void Refresh(QPainter& painter) {
  painter.setPen(Line(tone::kText, 2.1));
  painter.drawArc(QRectF(4, 4, 16, 16), 50 * 16, 290 * 16);
  painter.drawPolyline(QPolygonF({{12.4, 5.9}, {17.3, 5.9}, {17.3, 1.4}}));
}

void Halt(QPainter& painter) {
  painter.setPen(Line(tone::kBad, 2.4));
  painter.drawLine(QPointF(5.5, 5.5), QPointF(18.5, 18.5));
  painter.drawLine(QPointF(18.5, 5.5), QPointF(5.5, 18.5));
}

void Search(QPainter& painter) {
  painter.setPen(Line(tone::kText, 2));
  painter.drawEllipse(QPointF(10, 10), 6.5, 6.5);
  painter.setPen(Line(tone::kAccent, 2.6));
  painter.drawLine(QPointF(15.2, 15.2), QPointF(20.6, 20.6));
}

}  // namespace

void DrawServiceIcon(QPainter& painter, Icon icon) {
  switch (icon) {
    case Icon::pages:
      return Pages(painter);
    case Icon::web:
      return Globe(painter);
    case Icon::sheet_on:
      return LiveSheet(painter);
    case Icon::sheet_off:
      return QuietSheet(painter);
    case Icon::home:
      return Home(painter);
    case Icon::service:
      return Exchange(painter);
    case Icon::forum:
      return Forum(painter);
    case Icon::chat:
      return Chat(painter);
    case Icon::about:
      return About(painter);
    case Icon::back:
      return Arrow(painter, -1);
    case Icon::forward:
      return Arrow(painter, 1);
    case Icon::refresh:
      return Refresh(painter);
    case Icon::halt:
      return Halt(painter);
    case Icon::search:
      return Search(painter);
    default:
      return;
  }
}

}  // namespace qt

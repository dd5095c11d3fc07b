#include "qt/look/chart_pointer.h"

#include <algorithm>

#include "base/masks.h"
#include "qt/look/style_parts.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kPadding = 8, kLine = 17, kBetween = 14, kAway = 12;
constexpr QSize kRoomy(260, 150);
constexpr int kShortLines = 2;

}  // namespace

QVector<RecordLine> DescribeRecord(const charts::Chart& chart, const charts::Senalado& record) {
  const auto price = [&chart](double value) { return PriceText(chart, value); };
  QVector<RecordLine> lines{
      {QStringLiteral("Hora"), Text(charts::Chart::TextoHora(record.punto.x))},
      {QStringLiteral("Precio"), price(record.punto.y)}};
  if (record.negociado > 0) {
    lines << RecordLine{QStringLiteral("Negociado"),
                        Text(base::masks::kWhole.Format(record.negociado))};
  }
  // A replayed record knows its price alone.
  if (record.record.maximo > record.record.minimo) {
    lines << RecordLine{QStringLiteral("Máx. sesión"),
                        price(static_cast<double>(record.record.maximo))}
          << RecordLine{QStringLiteral("Mín. sesión"),
                        price(static_cast<double>(record.record.minimo))};
  }
  return lines;
}

ChartPointer::ChartPointer(const ChartScene& scene, QCustomPlot& plot)
    : ChartMark(scene, plot, QStringLiteral("overlay")) {
  layer()->setMode(QCPLayer::lmBuffered);
}

void ChartPointer::Show(const std::optional<charts::Senalado>& at) {
  if (!at && !at_) return;
  at_ = at;
  layer()->replot();
}

void ChartPointer::draw(QCPPainter* painter) {
  if (!at_ || !scene().chart || !scene().time->range().contains(at_->punto.x)) return;
  const QRect room = prices();
  const QRect below = scene().volume_time->axisRect()->rect();
  const bool two = scene().volume_time->axisRect()->visible();
  const QPoint at(qRound(scene().time->coordToPixel(at_->punto.x)),
                  qRound(scene().price->coordToPixel(at_->punto.y)));
  painter->setPen(QPen(tone::kMuted, 0));
  painter->drawLine(QLineF(at.x(), room.top(), at.x(), two ? below.bottom() : room.bottom()));
  if (room.top() <= at.y() && at.y() <= room.bottom()) {
    painter->drawLine(QLineF(room.left(), at.y(), room.right(), at.y()));
    painter->setAntialiasing(true);
    painter->setPen(QPen(tone::kGround, 1.5));
    painter->setBrush(LineColor(0));
    painter->drawEllipse(at, 4, 4);
  }
  DrawBox(*painter, at);
}

void ChartPointer::DrawBox(QCPPainter& painter, const QPoint& at) const {
  const QRect room = prices().adjusted(2, 2, -2, -2);
  QVector<RecordLine> lines = DescribeRecord(*scene().chart, *at_);
  const bool roomy = room.width() >= kRoomy.width() && room.height() >= kRoomy.height();
  if (!roomy) lines.resize(std::min<qsizetype>(lines.size(), kShortLines));
  painter.setFont(SmallFont());
  const QFontMetrics type = painter.fontMetrics();
  int names = 0, values = 0;
  for (const RecordLine& line : lines) {
    names = std::max(names, type.horizontalAdvance(line.name));
    values = std::max(values, type.horizontalAdvance(line.value));
  }
  QRect box(0, 0, names + kBetween + values + 2 * kPadding,
            static_cast<int>(lines.size()) * kLine + kPadding);
  if (box.width() > room.width() || box.height() > room.height()) return;
  const bool right = at.x() + kAway + box.width() <= room.right();
  box.moveTopLeft(
      {right ? at.x() + kAway : at.x() - kAway - box.width(), at.y() - box.height() / 2});
  box.moveLeft(std::clamp(box.left(), room.left(), room.right() + 1 - box.width()));
  box.moveTop(std::clamp(box.top(), room.top(), room.bottom() + 1 - box.height()));

  painter.setAntialiasing(true);
  DrawRounded(painter, box, Mix(tone::kGround, tone::kRaised, 0.9), tone::kLine);
  QRect text(box.left() + kPadding, box.top() + kPadding / 2, box.width() - 2 * kPadding, kLine);
  for (const RecordLine& line : lines) {
    painter.setPen(tone::kMuted);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, line.name);
    painter.setPen(tone::kText);
    painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, line.value);
    text.translate(0, kLine);
  }
}

}  // namespace qt

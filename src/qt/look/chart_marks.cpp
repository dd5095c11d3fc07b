#include "qt/look/chart_marks.h"

#include <algorithm>
#include <array>

#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr double kMinute = 60;
constexpr int kTagHeight = 18, kTagPadding = 5;

constexpr std::array kLines{
    tone::kBusy,
    QColor(0xff, 0xc0, 0x4d),
    QColor(0xe5, 0x8c, 0xff),
    QColor(0x7e, 0xe0, 0x8a),
    QColor(0xff, 0x8f, 0x6b),
    QColor(0x59, 0xd8, 0xd0),
    QColor(0xf0, 0xec, 0x7a),
    QColor(0xff, 0x7f, 0xb0),
    QColor(0xb0, 0xa1, 0xff),
    QColor(0xd0, 0xb0, 0x90),
};

}  // namespace

QColor LineColor(std::size_t index) { return kLines[index % kLines.size()]; }

QRect VolumeBars::clipRect() const { return scene().volume_time->axisRect()->rect(); }

void VolumeBars::draw(QCPPainter* painter) {
  if (!scene().chart || !scene().volume_time->axisRect()->visible()) return;
  const QCPAxis& time = *scene().volume_time;
  const QRect room = time.axisRect()->rect();
  const auto& bars = scene().chart->barras();
  QVector<QRect> drawn;
  for (auto bar =
           std::ranges::upper_bound(bars, time.range().lower - kMinute, {}, &charts::Barra::x);
       bar != bars.end() && bar->x < time.range().upper; ++bar) {
    const int left = qRound(time.coordToPixel(bar->x));
    const int width = qRound(time.coordToPixel(bar->x + kMinute)) - left;
    const double part = std::min(bar->volumen / scene().seen.volumen, 1.0);
    const int height = qRound(part * room.height());
    const QRect rect(left, room.bottom() + 1 - height, std::max(width > 3 ? width - 1 : width, 1),
                     height);
    if (drawn.isEmpty() || drawn.back().left() != left) {
      drawn << rect;
    } else if (height > drawn.back().height()) {
      drawn.back() = rect;
    }
  }
  painter->setPen(Qt::NoPen);
  painter->setBrush(Mix(tone::kGround, tone::kBusy, 0.5));
  painter->drawRects(drawn);
}

void LastPrice::draw(QCPPainter* painter) {
  if (!scene().chart || scene().chart->lineas() == 0) return;
  const auto& points = scene().chart->linea(0).puntos;
  if (points.empty()) return;
  const double price = points.back().y;
  if (!scene().price->range().contains(price)) return;
  const QRect room = prices();
  const int y = qRound(scene().price->coordToPixel(price));
  const QColor color = LineColor(0);
  painter->setPen(QPen(color, 0, Qt::DashLine));
  painter->drawLine(QLineF(room.left(), y, room.right(), y));

  painter->setFont(SmallFont());
  const QString text = PriceText(*scene().chart, price);
  const int width = painter->fontMetrics().horizontalAdvance(text) + 2 * kTagPadding;
  QRect tag(room.right() + 1, y - kTagHeight / 2, width, kTagHeight);
  tag.moveTop(std::clamp(tag.top(), 0, std::max(mParentPlot->height() - kTagHeight, 0)));
  painter->setAntialiasing(true);
  painter->setPen(Qt::NoPen);
  painter->setBrush(color);
  painter->drawRoundedRect(tag, 3, 3);
  painter->setPen(tone::kOnAccent);
  painter->drawText(tag, Qt::AlignCenter, text);
}

void LineNames::draw(QCPPainter* painter) {
  if (!scene().chart || scene().chart->lineas() < 2) return;
  constexpr int kDash = 14, kGap = 6, kBetween = 16, kHeight = 18, kMargin = 6;
  const QRect room = prices();
  painter->setFont(SmallFont());
  int x = room.left() + kMargin, y = room.top() + kMargin;
  for (std::size_t i = 0; i < scene().chart->lineas(); ++i) {
    const QString name = OneLine(Text(scene().chart->linea(i).nombre));
    const int width = kDash + kGap + painter->fontMetrics().horizontalAdvance(name);
    if (x > room.left() + kMargin && x + width > room.right()) {
      x = room.left() + kMargin;
      y += kHeight;
    }
    QColor ground = tone::kGround;
    ground.setAlpha(200);
    painter->fillRect(x - 3, y, width + 6, kHeight, ground);
    painter->setPen(QPen(LineColor(i), 2));
    painter->drawLine(QLineF(x, y + kHeight / 2, x + kDash, y + kHeight / 2));
    painter->setPen(tone::kText);
    painter->drawText(QRect(x + kDash + kGap, y, width, kHeight), Qt::AlignVCenter, name);
    x += width + kBetween;
  }
}

}  // namespace qt

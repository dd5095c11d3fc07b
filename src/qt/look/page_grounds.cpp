#include "qt/look/page_grounds.h"

#include <QPainter>
#include <QPainterPath>

#include "qt/look/theme.h"

namespace qt {
namespace {

// Sides that are whole numbers of dots at the usual scales of screens.
constexpr int kWave = 48, kDots = 24;

// Prices that go up and down, each end level with the beginning of the next.
void DrawWaves(QPainter& painter) {
  painter.fillRect(0, 0, kWave, kWave, tone::kWindow);
  painter.setPen(QPen(Mix(tone::kWindow, tone::kAccent, 0.14), 1.2));
  for (const double y : {12.0, 36.0}) {
    QPainterPath wave(QPointF(0, y));
    wave.cubicTo(12, y - 14, 12, y + 2, 24, y);
    wave.cubicTo(36, y - 2, 36, y + 14, 48, y);
    painter.drawPath(wave);
  }
}

void DrawDots(QPainter& painter) {
  painter.fillRect(0, 0, kDots, kDots, tone::kGround);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Mix(tone::kGround, tone::kLine, 0.55));
  for (const QPointF at : {QPointF(6, 6), QPointF(18, 18)}) painter.drawEllipse(at, 1, 1);
}

}  // namespace

void PageGround::paintEvent(QPaintEvent*) {
  const bool waves = pattern_ == Pattern::waves;
  if (const double sharp = devicePixelRatioF();
      tile_.isNull() || tile_.devicePixelRatio() != sharp) {
    tile_ = QPixmap((QSizeF(1, 1) * (waves ? kWave : kDots) * sharp).toSize());
    tile_.setDevicePixelRatio(sharp);
    QPainter painter(&tile_);
    painter.setRenderHint(QPainter::Antialiasing);
    waves ? DrawWaves(painter) : DrawDots(painter);
  }
  QPainter(this).drawTiledPixmap(rect(), tile_);
}

}  // namespace qt

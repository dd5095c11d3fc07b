#include "qt/look/ticker_widget.h"

#include <algorithm>
#include <cmath>

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

#include "qt/look/pictures.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kFrameMs = 16;
constexpr int kLongestStepMs = 100;  // after a pause the strip goes on where it was
constexpr double kPictureSide = 20;
constexpr int kEnd = static_cast<int>(platform::TickerFlow::kRest);

/// Items come and go as if out of a mist.
void DrawEnds(QPainter& painter, const QRect& strip) {
  QColor clear = tone::kGround;
  clear.setAlpha(0);
  for (const bool left : {true, false}) {
    const int edge = left ? strip.left() : strip.right() + 1;
    QLinearGradient mist(edge, 0, left ? edge + kEnd : edge - kEnd, 0);
    mist.setColorAt(0, tone::kGround);
    mist.setColorAt(1, clear);
    painter.fillRect(left ? edge : edge - kEnd, strip.top(), kEnd, strip.height(), mist);
  }
}

}  // namespace

TickerWidget::TickerWidget(const platform::Ticker& ticker, QWidget* parent)
    : QWidget(parent),
      ticker_(&ticker),
      text_(StrongFont()),
      flow_([this](const platform::TickerItem& item) { return WidthOf(item); }) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumHeight(sizeHint().height());
}

double TickerWidget::WidthOf(const platform::TickerItem& item) {
  return item.picture != platform::Picture::none ? kPictureSide + 12 : text_.WidthOf(item.text);
}

void TickerWidget::Drop() {
  ticker_ = nullptr;
  timer_.stop();
}

void TickerWidget::Refresh() {
  UpdatePieces();
  flow_.Update(ticker_->items());
  UpdatePieces();
  StartOrStop();
}

void TickerWidget::StartOrStop() {
  const bool seen = isVisible() && !window()->isMinimized();
  const bool move = seen && ticker_ && ticker_->scrolling() && !ticker_->items().empty();
  if (move == timer_.isActive()) return;
  if (!move) return timer_.stop();
  since_step_.start();
  timer_.start(kFrameMs, Qt::PreciseTimer, this);
}

void TickerWidget::showEvent(QShowEvent*) {
  window()->installEventFilter(this);
  StartOrStop();
}

void TickerWidget::resizeEvent(QResizeEvent*) { StartOrStop(); }

void TickerWidget::hideEvent(QHideEvent*) { timer_.stop(); }

bool TickerWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowStateChange) StartOrStop();
  return QWidget::eventFilter(watched, event);
}

void TickerWidget::timerEvent(QTimerEvent*) {
  const auto passed = std::min<qint64>(since_step_.restart(), kLongestStepMs);
  UpdatePieces();
  const double pixels = static_cast<double>(passed) * kPixelsPerSecond / 1000;
  if (!flow_.Advance(ticker_->items(), pixels, width())) timer_.stop();
  UpdatePieces();
}

// Only what carries something: most of a strip with few items stays as it is.
void TickerWidget::UpdatePieces() {
  for (const auto& piece : flow_.pieces()) {
    update(static_cast<int>(std::floor(piece.left)) - 1, 0,
           static_cast<int>(std::ceil(piece.width)) + 3, height());
  }
}

void TickerWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  for (const QRect& dirty : event->region()) painter.fillRect(dirty, tone::kGround);
  const double ratio = devicePixelRatioF();
  for (const auto& piece : flow_.pieces()) {
    const double left = std::round(piece.left * ratio) / ratio;
    if (!event->region().intersects(QRectF(left, 0, piece.width, height()).toAlignedRect()))
      continue;
    if (piece.item.picture != platform::Picture::none) {
      const double top = (height() - kPictureSide) / 2;
      DrawPicture(painter, QRectF(left, top, kPictureSide, kPictureSide), piece.item.picture);
      continue;
    }
    painter.setPen(ColorOf(piece.item.color));
    text_.Draw(painter, QRectF(left, 0, piece.width + 1, height()), piece.item.text,
               platform::Align::left);
  }
  DrawEnds(painter, rect());
}

}  // namespace qt

#include "qt/look/chart_plot.h"

#include <algorithm>

#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kPixelsAnHour = 84, kPixelsAPrice = 42;
constexpr int kLeastForVolume = 170;
constexpr int kSide = 8, kTop = 10;

/// Any but the thinnest line is dear to draw through many points.
double PenWidth(const QCPGraphDataContainer& points, const QCPRange& seen) {
  constexpr qsizetype kFew = 1500;
  const auto first = points.findBegin(seen.lower), end = points.findEnd(seen.upper);
  return end - first <= kFew ? 1.6 : 1;
}

}  // namespace

ChartPlot::ChartPlot(const charts::Chart& chart, QWidget* parent)
    : QCustomPlot(parent), prices_(axisRect()), volumes_(new QCPAxisRect(this)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setBackground(QBrush(tone::kGround));
  setPlottingHints(QCP::phFastPolylines | QCP::phCacheLabels);
  setAutoAddPlottableToLegend(false);
  scene_ = {.chart = &chart,
            .time = prices_->axis(QCPAxis::atBottom),
            .price = prices_->axis(QCPAxis::atRight),
            .volume_time = volumes_->axis(QCPAxis::atBottom)};
  auto* margins = new QCPMarginGroup(this);
  for (QCPAxisRect* rect : {prices_, volumes_}) {
    SetUp(*rect);
    rect->setMarginGroup(QCP::msRight, margins);
  }
  scene_.price->setTicker(QSharedPointer<QCPAxisTicker>(new PriceTicker(scene_)));
  prices_->setMinimumMargins({kSide, kTop, kSide, 0});
  volumes_->axis(QCPAxis::atRight)->setVisible(false);
  volumes_->setVisible(false);
  plotLayout()->setRowSpacing(4);

  const QString main = QStringLiteral("main"), above = QStringLiteral("legend");
  new VolumeBars(scene_, *this, main);
  new LastPrice(scene_, *this, above);
  new LineNames(scene_, *this, above);
  pointer_ = new ChartPointer(scene_, *this);
  connect(this, &QCustomPlot::beforeReplot, this, &ChartPlot::Take);
}

void ChartPlot::SetUp(QCPAxisRect& rect) const {
  const QPen grid(Mix(tone::kGround, tone::kLine, 0.55), 0), edge(tone::kLine, 0);
  for (QCPAxis* axis : rect.axes()) {
    axis->setVisible(axis->axisType() == QCPAxis::atBottom || axis->axisType() == QCPAxis::atRight);
    axis->setBasePen(edge);
    axis->setTickPen(edge);
    axis->setTickLength(0, 3);
    axis->setSubTicks(false);
    axis->setTickLabelFont(SmallFont());
    axis->setTickLabelColor(tone::kMuted);
    axis->setTickLabelPadding(4);
    axis->grid()->setVisible(axis->visible());
    axis->grid()->setPen(grid);
    axis->grid()->setZeroLinePen(Qt::NoPen);
  }
  rect.axis(QCPAxis::atBottom)->setTicker(QSharedPointer<QCPAxisTicker>(new TimeTicker));
  rect.setMinimumSize(10, 10);
  rect.setMinimumMargins({kSide, 0, kSide, 0});
}

void ChartPlot::Take() {
  if (!scene_.chart) return;
  if (lines_.size() != scene_.chart->lineas() || series_ != scene_.chart->series()) MakeLines();
  for (std::size_t i = 0; i < lines_.size(); ++i) TakeLine(lines_[i], scene_.chart->linea(i));
  ArrangeVolume();
  FitAxes();
}

void ChartPlot::MakeLines() {
  clearGraphs();
  lines_.clear();
  series_ = scene_.chart->series();
  for (std::size_t i = 0; i < scene_.chart->lineas(); ++i) {
    QCPGraph* graph = addGraph(scene_.time, scene_.price);
    lines_.push_back({.graph = graph});
  }
}

void ChartPlot::TakeLine(Line& line, const charts::Linea& from) {
  if (line.generation != from.generation || line.taken > from.puntos.size()) {
    line.graph->data()->clear();
    line.taken = 0;
    line.generation = from.generation;
  }
  if (line.taken == from.puntos.size()) return;
  QVector<QCPGraphData> added;
  added.reserve(static_cast<qsizetype>(from.puntos.size() - line.taken));
  for (; line.taken < from.puntos.size(); ++line.taken) {
    added.append({from.puntos[line.taken].x, from.puntos[line.taken].y});
  }
  line.graph->data()->add(added, true);
  // A line of one point can't be seen.
  const bool dot = from.puntos.size() == 1;
  line.graph->setScatterStyle(dot ? QCPScatterStyle(QCPScatterStyle::ssDisc, 5)
                                  : QCPScatterStyle());
}

void ChartPlot::ArrangeVolume() {
  const bool wanted =
      scene_.chart->with_volume() && height() >= kLeastForVolume && !scene_.chart->barras().empty();
  if (wanted != volumes_->visible()) {
    volumes_->setVisible(wanted);
    if (wanted) {
      plotLayout()->addElement(1, 0, volumes_);
      plotLayout()->setRowStretchFactor(0, 4);
    } else {
      plotLayout()->take(volumes_);
      plotLayout()->simplify();
    }
  }
  scene_.time->setTickLabels(!wanted);
}

/// What is seen, and above it room for the names of the lines.
QCPRange ChartPlot::PriceRange() const {
  constexpr int kNames = 28;
  QCPRange range = RangeOf(scene_.seen.minimo, scene_.seen.maximo);
  const int height = prices_->height();
  if (scene_.chart->lineas() > 1 && height > 3 * kNames) {
    range.upper += range.size() * kNames / (height - kNames);
  }
  return range;
}

void ChartPlot::FitAxes() {
  scene_.seen = scene_.chart->vista();
  const QCPRange time = RangeOf(scene_.seen.desde, scene_.seen.hasta);
  scene_.time->setRange(time);
  scene_.volume_time->setRange(time);
  scene_.price->setRange(PriceRange());
  for (QCPAxis* axis : {scene_.time, scene_.volume_time}) {
    axis->ticker()->setTickCount(std::max(width() / kPixelsAnHour, 1));
  }
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    lines_[i].graph->setPen(QPen(LineColor(i), PenWidth(*lines_[i].graph->data(), time)));
  }
  scene_.price->ticker()->setTickCount(std::max(height() / kPixelsAPrice, 2));
}

QPixmap ChartPlot::Picture(double scale) {
  Take();
  pointer_->setVisible(false);
  QPixmap picture = toPixmap(0, 0, scale);
  pointer_->setVisible(true);
  return picture;
}

double ChartPlot::PartOf(double pixels) const { return pixels / std::max(prices_->width(), 1); }

bool ChartPlot::Covers(const QPoint& place) const {
  return prices_->rect().contains(place) ||
         (volumes_->visible() && volumes_->rect().contains(place));
}

void ChartPlot::paintEvent(QPaintEvent* event) {
  QCustomPlot::paintEvent(event);
  if (on_paint) on_paint();
}

}  // namespace qt

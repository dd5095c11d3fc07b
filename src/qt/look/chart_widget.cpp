#include "qt/look/chart_widget.h"

#include <algorithm>
#include <cmath>

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "qt/look/chart_access.h"
#include "qt/look/chart_plot.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kRing = 2;
constexpr double kCloser = 0.8, kFurther = 1 / kCloser, kPart = 0.25;
constexpr int kShare = 100;  // drawing takes one part in so many of the time

}  // namespace

ChartWidget::ChartWidget(charts::Chart& chart, QWidget* parent)
    : QWidget(parent),
      chart_(&chart),
      plot_(new ChartPlot(chart, this)),
      commands_([this] { return Commands(); }) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  plot_->hide();
  plot_->on_paint = [this] { Pace(); };
  connect(plot_, &ChartPlot::afterReplot, this, [this] {
    stale_ = false;
    since_drawn_.start();
  });
  TellCharts();
}

ChartWidget::~ChartWidget() { plot_->on_paint = nullptr; }

void ChartWidget::Refresh() {
  if (!chart_) return;
  const QString tip = ToolTipText(chart_->tool_tip());
  if (toolTip() != tip) setToolTip(tip);
  stale_ = true;
  Arrange();
  Pace();
}

void ChartWidget::Drop() {
  chart_ = nullptr;
  timer_.stop();
  plot_->Drop();
}

bool ChartWidget::Empty() const {
  if (!chart_) return true;
  for (std::size_t i = 0; i < chart_->lineas(); ++i) {
    if (!chart_->linea(i).puntos.empty()) return false;
  }
  return true;
}

QString ChartWidget::Description() const {
  if (Empty()) return QStringLiteral("Sin datos todavía");
  const auto& at = plot_->pointer().at();
  return at ? DescribeAt(*chart_, *at) : DescribeAll(*chart_);
}

QRect ChartWidget::Inside() const {
  const int bar = bar_ && !bar_->isHidden() ? kChartBarHeight : 0;
  return rect().adjusted(kRing, kRing, -kRing, -kRing - bar);
}

void ChartWidget::Arrange() {
  if (!chart_) return;
  const bool empty = Empty(), out = !chart_->visible();
  if (out && !out_) still_ = empty ? QPixmap() : plot_->Picture(devicePixelRatioF());
  out_ = out;
  const QRect inside = Inside();
  if (bar_) bar_->setGeometry(0, height() - kChartBarHeight, width(), kChartBarHeight);
  const bool room =
      inside.width() >= ChartPlot::kLeast.width() && inside.height() >= ChartPlot::kLeast.height();
  if (!out) {
    still_ = {};
    if (room) plot_->setGeometry(inside);
  }
  const bool shown = room && !empty && !out;
  if (plot_->isHidden() != shown) return;
  plot_->setVisible(shown);
  update();
}

bool ChartWidget::Seen() const {
  return chart_ && plot_->isVisible() && !window()->isMinimized() &&
         !plot_->visibleRegion().isEmpty();
}

void ChartWidget::Pace() {
  if (!stale_ || timer_.isActive() || !Seen()) return;
  const auto gap = std::max<qint64>(kGapMs, std::llround(plot_->replotTime() * kShare));
  const qint64 passed = since_drawn_.isValid() ? since_drawn_.elapsed() : gap;
  if (passed >= gap) return DrawNow();
  timer_.start(static_cast<int>(gap - passed), this);
}

void ChartWidget::DrawNow() {
  stale_ = true;
  if (Seen()) plot_->Draw();
}

void ChartWidget::timerEvent(QTimerEvent*) {
  timer_.stop();
  Pace();
}

void ChartWidget::showEvent(QShowEvent*) {
  window()->installEventFilter(this);
  Pace();
}

void ChartWidget::resizeEvent(QResizeEvent*) { Arrange(); }

bool ChartWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowStateChange) Pace();
  return QWidget::eventFilter(watched, event);
}

void ChartWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), tone::kGround);
  if (!still_.isNull()) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(0.4);
    painter.drawPixmap(Inside(), still_);
    painter.setOpacity(1);
  } else if (Empty()) {
    painter.setPen(tone::kMuted);
    painter.drawText(Inside(), Qt::AlignCenter | Qt::TextWordWrap,
                     QStringLiteral("Sin datos todavía"));
  }
  if (!hasFocus()) return;
  painter.setPen(tone::kAccent);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ChartWidget::focusInEvent(QFocusEvent*) { update(); }
void ChartWidget::focusOutEvent(QFocusEvent*) { update(); }

void ChartWidget::Zoom(double x, double factor) {
  chart_->Acercar(x, factor);
  DrawNow();
}

void ChartWidget::Pan(double part) {
  chart_->Desplazar(part);
  DrawNow();
}

void ChartWidget::ShowAll() {
  if (!chart_) return;
  chart_->VerTodo();
  DrawNow();
}

void ChartWidget::Point(const std::optional<charts::Senalado>& at) { plot_->pointer().Show(at); }

void ChartWidget::PointAt(const QPoint& place) {
  const QPoint at = plot_->mapFrom(this, place);
  if (!chart_ || plot_->isHidden() || !plot_->Covers(at)) return Point(std::nullopt);
  Point(chart_->Senalar(plot_->TimeAt(at.x())));
}

void ChartWidget::Step(int records) {
  const auto& at = plot_->pointer().at();
  const charts::Vista seen = chart_->vista();
  const bool begun = at && seen.desde <= at->punto.x && at->punto.x <= seen.hasta;
  const auto next = begun ? chart_->Vecino(at->punto.x, records) : chart_->Senalar(seen.hasta);
  if (!next) return;
  Point(next);
  const double x = next->punto.x, width = seen.hasta - seen.desde;
  if (x < seen.desde) Pan((x - seen.desde) / width - kPart);
  if (x > seen.hasta) Pan((x - seen.hasta) / width + kPart);
  TellChanged(*this);
}

void ChartWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  dragged_ = event->position().toPoint();
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  if (dragged_ && chart_ && !chart_->ve_todo()) {
    setCursor(Qt::ClosedHandCursor);
    const int by = dragged_->x() - place.x();
    dragged_ = place;
    if (by != 0) Pan(plot_->PartOf(by));
  }
  PointAt(place);
}

void ChartWidget::mouseReleaseEvent(QMouseEvent*) {
  dragged_.reset();
  unsetCursor();
}

void ChartWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) ShowAll();
}

void ChartWidget::wheelEvent(QWheelEvent* event) {
  const QPoint place = event->position().toPoint();
  if (!chart_ || plot_->isHidden()) return event->ignore();
  const QPoint by = event->angleDelta();
  constexpr double kNotch = 120;
  if (by.y() != 0) {
    Zoom(plot_->TimeAt(plot_->mapFrom(this, place).x()), std::pow(kCloser, by.y() / kNotch));
  } else if (by.x() != 0) {
    Pan(-kPart / 2 * by.x() / kNotch);
  }
  event->accept();
}

void ChartWidget::leaveEvent(QEvent*) { Point(std::nullopt); }

void ChartWidget::keyPressEvent(QKeyEvent* event) {
  if (!chart_ || (!RunMove(*event) && !RunCommand(*event))) QWidget::keyPressEvent(event);
}

bool ChartWidget::RunMove(const QKeyEvent& event) {
  const int key = event.key();
  if (key == Qt::Key_Escape) {
    const bool pointing = plot_->pointer().at().has_value();
    Point(std::nullopt);
    return pointing;
  }
  if (plot_->isHidden()) return false;
  const auto with = event.modifiers() & ~Qt::KeypadModifier;
  if (key == Qt::Key_Left || key == Qt::Key_Right) {
    const int to = key == Qt::Key_Left ? -1 : 1;
    if (with == Qt::ShiftModifier) return Pan(to * kPart), true;
    if (with != Qt::NoModifier && with != Qt::ControlModifier) return false;
    return Step(with == Qt::NoModifier ? to : 10 * to), true;
  }
  const bool closer = key == Qt::Key_Plus || key == Qt::Key_Equal;
  if ((!closer && key != Qt::Key_Minus) || (with & ~Qt::ShiftModifier)) return false;
  const charts::Vista seen = chart_->vista();
  const auto& at = plot_->pointer().at();
  Zoom(at ? at->punto.x : (seen.desde + seen.hasta) / 2, closer ? kCloser : kFurther);
  return true;
}

bool ChartWidget::RunCommand(const QKeyEvent& event) {
  const QKeySequence pressed(
      QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(event.key())));
  for (const ChartCommand& command : Commands()) {
    if (command.key.isEmpty() || command.key != pressed) continue;
    if (command.enabled) command.run();
    return true;
  }
  return false;
}

ChartCommands ChartWidget::Commands() {
  if (!chart_) return {};
  const bool some = !plot_->isHidden();
  ChartCommands all;
  const auto order = [this](int number) {
    return [this, number] {
      if (chart_ && chart_->on_command) chart_->on_command(number);
    };
  };
  if (chart_->on_command) {
    all.push_back({QStringLiteral("&Media móvil…"), QStringLiteral("Media…"), Qt::Key_M,
                   order(charts::Chart::kMedia)});
  }
  all.push_back({QStringLiteral("&Ver todo"), QStringLiteral("Ver todo"), Qt::Key_Home,
                 [this] { ShowAll(); }, some});
  if (chart_->on_command) {
    all.push_back({QStringLiteral("A&justar al marco"),
                   QStringLiteral("Ajustar"),
                   {},
                   order(charts::Chart::kAjustar)});
  }
  all.push_back({QStringLiteral("&Guardar imagen…"), QStringLiteral("Imagen…"),
                 Qt::CTRL | Qt::Key_S, [this] { SavePicture(); }, some});
  if (chart_->on_bar_shown) {
    all.push_back({QStringLiteral("&Barra de órdenes"),
                   {},
                   Qt::Key_B,
                   [this] { ToggleBar(); },
                   true,
                   true,
                   bar_ && !bar_->isHidden()});
  }
  return all;
}

void ChartWidget::ToggleBar() {
  if (!chart_) return;
  if (!bar_) {
    bar_ = MakeChartBar(commands_, this);
    bar_->hide();
  }
  const bool shown = bar_->isHidden();
  if (!shown && bar_->isAncestorOf(focusWidget())) setFocus();
  bar_->setVisible(shown);
  Arrange();
  update();
  if (const auto& tell = shown ? chart_->on_bar_shown : chart_->on_bar_hidden) tell();
}

void ChartWidget::SavePicture() {
  if (Empty()) return;
  QString name;
  for (const char c : chart_->linea(0).nombre) {
    const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    if (plain || c == ' ') name += QLatin1Char(c);
  }
  AskToSave(plot_->Picture(2), QStringLiteral("Grafico %1.png").arg(name.trimmed()), this);
}

void ChartWidget::contextMenuEvent(QContextMenuEvent* event) {
  if (!chart_) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  FillMenu(*menu, Commands());
  const bool key = event->reason() == QContextMenuEvent::Keyboard;
  menu->popup(key ? mapToGlobal(Inside().topLeft() + QPoint(8, 8)) : event->globalPos());
}

}  // namespace qt

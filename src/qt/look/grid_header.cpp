#include "qt/look/grid_header.h"

#include <utility>

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>

#include "qt/look/grid_delegate.h"
#include "qt/look/theme.h"

namespace qt {

GridHeader::GridHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), padding_(GridDelegate::kPadding) {
  setSectionsMovable(true);
  setFirstSectionMovable(false);
  setSectionsClickable(true);
  setHighlightSections(false);
  setSectionResizeMode(QHeaderView::Interactive);
  setMinimumSectionSize(0);
  viewport()->setMouseTracking(true);
  connect(this, &QHeaderView::sectionResized, this, [this](int col, int, int width) {
    if (!pressed_) return;
    resized_ = true;
    if (on_resize) on_resize(col, width);
  });
  connect(this, &QHeaderView::sectionMoved, this,
          [this](int, int from, int to) { SectionMoved(from, to); });
  connect(this, &QHeaderView::sectionDoubleClicked, this, [this](int col) {
    if (col >= 0 && on_double_click) on_double_click(col);
  });
}

void GridHeader::SectionMoved(int from, int to) {
  if (moving_back_) return;
  moving_back_ = true;
  moveSection(to, from);
  moving_back_ = false;
  moved_ = true;
  if (on_move) on_move(from, to);
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int logical) const {
  if (!rect.isValid()) return;
  painter->save();
  painter->fillRect(rect, logical == hover_ ? tone::kRaised : tone::kWindow);
  painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1, tone::kLine);
  painter->fillRect(rect.right(), rect.top() + 5, 1, rect.height() - 11, tone::kLine);
  const int align = model()->headerData(logical, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
  const QString text = model()->headerData(logical, Qt::Horizontal, Qt::DisplayRole).toString();
  const QRect place = rect.adjusted(padding_, 0, -padding_, 0);
  painter->setFont(font());
  painter->setPen(logical == hover_ ? tone::kText : tone::kMuted);
  painter->drawText(place, align | Qt::TextSingleLine,
                    painter->fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
  painter->restore();
}

QSize GridHeader::sectionSizeFromContents(int logical) const {
  const QFontMetrics metrics(font());
  if (!model()) return {0, metrics.height() + 12};  // between two models
  const QString text = model()->headerData(logical, Qt::Horizontal, Qt::DisplayRole).toString();
  return {metrics.horizontalAdvance(text) + 2 * padding_, metrics.height() + 12};
}

void GridHeader::SetHover(int col) {
  if (col == hover_) return;
  hover_ = col;
  viewport()->update();
}

void GridHeader::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton;
  resized_ = moved_ = false;
  QHeaderView::mousePressEvent(event);
}

void GridHeader::mouseMoveEvent(QMouseEvent* event) {
  QHeaderView::mouseMoveEvent(event);
  // The button was let go where this widget isn't told, as over a box that came up meanwhile.
  if (event->buttons() == Qt::NoButton) LetGo();
  const int col = logicalIndexAt(event->position().toPoint());
  SetHover(col);
  if (!pressed_ && on_hover) on_hover(col);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
  QHeaderView::mouseReleaseEvent(event);
  if (event->button() != Qt::LeftButton) return;
  const bool dragged = resized_ || moved_;
  const int col = logicalIndexAt(event->position().toPoint());
  if (LetGo() && !dragged && col >= 0 && on_click) on_click(col);
}

bool GridHeader::LetGo() {
  if (std::exchange(resized_, false) && on_resized) on_resized();
  return std::exchange(pressed_, false);
}

bool GridHeader::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) {
    SetHover(-1);
    if (QGuiApplication::mouseButtons() == Qt::NoButton) LetGo();
    if (on_leave) on_leave();
  }
  return QHeaderView::viewportEvent(event);
}

}  // namespace qt

#include "qt/look/list_widget.h"

#include <algorithm>
#include <array>

#include <QFontDatabase>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include "qt/look/list_columns.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kMargin = 8, kRowHeight = 26;

QRect RoomIn(const QRect& row) { return row.adjusted(kMargin, 0, -kMargin, 0); }

/// Never wider than the list, which so needs no look at the lines out of sight.
class LineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const bool lit = option.state.testFlag(QStyle::State_Selected);
    if (lit) {
      const double share = option.state.testFlag(QStyle::State_Active) ? 0.42 : 0.28;
      painter->fillRect(option.rect, Mix(tone::kGround, tone::kAccent, share));
    }
    if (lit && option.state.testFlag(QStyle::State_HasFocus)) {
      painter->setPen(tone::kAccent);
      painter->setBrush(Qt::NoBrush);
      painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    painter->setFont(option.font);
    painter->setPen(lit ? Qt::white : tone::kText);
    DrawLine(*painter, RoomIn(option.rect), index);
  }
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
    return {0, kRowHeight};
  }
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    if (event->type() != QEvent::ToolTip ||
        WidthOf(index, view->fontMetrics()) <= RoomIn(option.rect).width()) {
      return false;
    }
    const QString line = index.data().toString();
    QToolTip::showText(event->globalPos(), ToolTipText(line.toStdString()), view);
    return true;
  }

 protected:
  virtual void DrawLine(QPainter& painter, const QRect& room, const QModelIndex& index) const {
    painter.drawText(
        room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, room.width()));
  }
  [[nodiscard]] virtual int WidthOf(const QModelIndex& index, const QFontMetrics& metrics) const {
    return metrics.horizontalAdvance(index.data().toString());
  }
};

class CellsDelegate : public LineDelegate {
 public:
  CellsDelegate(const ListColumns& columns, QObject* parent)
      : LineDelegate(parent), columns_(columns) {}

 protected:
  void DrawLine(QPainter& painter, const QRect& room, const QModelIndex& index) const override {
    columns_.Draw(painter, room, static_cast<std::size_t>(index.row()));
  }
  [[nodiscard]] int WidthOf(const QModelIndex&, const QFontMetrics&) const override {
    return columns_.width();
  }

 private:
  const ListColumns& columns_;
};

}  // namespace

class ListWidget::Lines : public QAbstractListModel {
 public:
  explicit Lines(const platform::ListBox& list) : list_(&list) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : shown_;
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const auto row = static_cast<std::size_t>(index.row());
    if (role != Qt::DisplayRole || !list_ || row >= list_->items().size()) return {};
    const QString line = Text(list_->items()[row]);
    return columns_ ? columns_->Joined(line) : OneLine(line);
  }
  void set_columns(const ListColumns& columns) { columns_ = &columns; }
  void Refresh() { Show(static_cast<int>(list_->items().size())); }
  void Drop() {
    list_ = nullptr;
    Show(0);
  }

 private:
  void Show(int count) {
    const int kept = qMin(count, shown_);
    if (count > shown_) {
      beginInsertRows({}, shown_, count - 1);
      shown_ = count;
      endInsertRows();
    } else if (count < shown_) {
      beginRemoveRows({}, count, shown_ - 1);
      shown_ = count;
      endRemoveRows();
    }
    if (kept > 0) Q_EMIT dataChanged(index(0), index(kept - 1));
  }

  const platform::ListBox* list_;
  const ListColumns* columns_ = nullptr;
  int shown_ = 0;
};

ListWidget::ListWidget(platform::ListBox& list, QWidget* parent)
    : QListView(parent), list_(&list), lines_(std::make_unique<Lines>(list)) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(10);
  setFont(font);
  setItemDelegate(new LineDelegate(this));
  setModel(lines_.get());
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  QPalette colors = palette();
  colors.setColor(QPalette::Base, tone::kGround);
  setPalette(colors);
}

ListWidget::~ListWidget() { setModel(nullptr); }

void ListWidget::set_cells(Split split, QList<Qt::Alignment> alignments, QStringList headings) {
  columns_ =
      std::make_unique<ListColumns>(std::move(split), std::move(alignments), std::move(headings));
  lines_->set_columns(*columns_);
  setItemDelegate(new CellsDelegate(*columns_, this));
  setFont(TextFont());
  setViewportMargins(0, columns_->headed() ? kRowHeight : 0, 0, 0);
  Refresh();
}

void ListWidget::set_empty_text(const QString& text) {
  empty_text_ = text;
  viewport()->update();
}

void ListWidget::Refresh() {
  if (!list_) return;
  refreshing_ = true;
  const bool at_end = verticalScrollBar()->value() == verticalScrollBar()->maximum();
  const int before = lines_->rowCount();
  Measure();
  lines_->Refresh();
  const int row = list_->list_index();
  if (row < 0) {
    clearSelection();
  } else {
    selectionModel()->setCurrentIndex(lines_->index(row), QItemSelectionModel::ClearAndSelect);
  }
  refreshing_ = false;
  if (follows_end_ && at_end && lines_->rowCount() > before) scrollToBottom();
}

void ListWidget::Measure() {
  if (!columns_) return;
  columns_->Measure(list_->items(), font());
  if (columns_->headed()) update();
}

void ListWidget::Drop() {
  list_ = nullptr;
  refreshing_ = true;
  lines_->Drop();
}

void ListWidget::selectionChanged(const QItemSelection& selected,
                                  const QItemSelection& deselected) {
  QListView::selectionChanged(selected, deselected);
  if (refreshing_ || !list_ || selected.isEmpty()) return;
  list_->Click(selected.indexes().constFirst().row());
}

// A chosen line can't be given up, only changed for another.
QItemSelectionModel::SelectionFlags ListWidget::selectionCommand(const QModelIndex& index,
                                                                 const QEvent*) const {
  return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

// The view makes the first line current as it gets the focus, and would step past it.
void ListWidget::keyPressEvent(QKeyEvent* event) {
  constexpr std::array kSteps{Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp,
                              Qt::Key_Home};
  if (std::ranges::find(kSteps, event->key()) == kSteps.end() || selectionModel()->hasSelection()) {
    return QListView::keyPressEvent(event);
  }
  selectionModel()->setCurrentIndex(lines_->index(0), QItemSelectionModel::ClearAndSelect);
}

void ListWidget::mousePressEvent(QMouseEvent* event) {
  const QModelIndex line = indexAt(event->position().toPoint());
  const bool again = event->button() == Qt::LeftButton && selectionModel()->isSelected(line);
  QListView::mousePressEvent(event);
  if (again && list_) list_->Click(line.row());
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  QListView::mouseDoubleClickEvent(event);
  const bool on_line = indexAt(event->position().toPoint()).isValid();
  if (list_ && on_line && event->button() == Qt::LeftButton) list_->DoubleClick();
}

void ListWidget::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (lines_->rowCount() > 0 || empty_text_.isEmpty()) return;
  QPainter painter(viewport());
  painter.setFont(TextFont());
  painter.setPen(tone::kMuted);
  painter.drawText(RoomIn(viewport()->rect()), Qt::AlignCenter | Qt::TextWordWrap, empty_text_);
}

// The headings stand in the margin above the viewport, which the list itself paints.
bool ListWidget::event(QEvent* event) {
  const bool done = QListView::event(event);
  if (event->type() == QEvent::Paint && columns_ && columns_->headed()) DrawHeadings();
  return done;
}

void ListWidget::DrawHeadings() {
  const QRect below = viewport()->geometry();
  const QRect head(below.x(), below.y() - kRowHeight, below.width(), kRowHeight);
  QPainter painter(this);
  painter.fillRect(head, tone::kWindow);
  painter.fillRect(head.adjusted(0, kRowHeight - 2, 0, 0),
                   hasFocus() ? tone::kAccent : tone::kLine);
  painter.setPen(tone::kMuted);
  columns_->DrawHeadings(painter, RoomIn(head));
}

void ListWidget::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::FontChange && list_) Measure();
}

}  // namespace qt

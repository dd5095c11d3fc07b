#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScrollBar>

#include "qt/look/grid_widget.h"
#include "qt/look/text.h"
#include "qt/ports/twips.h"

// What the keyboard does in a grid.
namespace qt {
namespace {

constexpr int kLeastByKey = ToTwips(20);

}  // namespace

void GridWidget::MoveColumn(int from, int to) {
  if (grid_->on_before_move_column) to = grid_->on_before_move_column(from, to);
  if (from != 0 && !tape_) grid_->MoveColumn(from, std::max(to, 1));
}

void GridWidget::Widen(int px) {
  const int col = currentIndex().column();
  grid_->set_width(col, std::clamp(grid_->width(col) + ToTwips(px), kLeastByKey, kWidestTwips));
  widened_ = true;
}

void GridWidget::ScrollPage(QAbstractSlider::SliderAction step) {
  verticalScrollBar()->triggerAction(step);
  const int row = qBound(rowAt(0), currentIndex().row(), LastShownRow());
  selectionModel()->setCurrentIndex(model_->index(row, currentIndex().column()),
                                    QItemSelectionModel::NoUpdate);
}

// Rows that come would pull the current row back, and a page that starts from it with them.
bool GridWidget::RunTapeKey(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy)) return CopyRows(), true;
  if (event.modifiers() != Qt::NoModifier) return false;
  if (event.key() == Qt::Key_PageUp) return ScrollPage(QScrollBar::SliderPageStepSub), true;
  if (event.key() == Qt::Key_PageDown) return ScrollPage(QScrollBar::SliderPageStepAdd), true;
  return false;
}

void GridWidget::CopyRows() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  if (rows.empty() && currentIndex().isValid()) rows.push_back(currentIndex().row());
  if (rows.empty()) return;
  std::sort(rows.begin(), rows.end());
  std::string text;
  for (const int row : rows) {
    for (int col = 0; col < grid_->cols(); ++col) {
      if (col > 0) text += '\t';
      text += grid_->text(row + 1, col);
    }
    text += '\n';
  }
  QGuiApplication::clipboard()->setText(Text(text));
}

bool GridWidget::RunCommandKey(const QKeyEvent& event) {
  const QModelIndex current = currentIndex();
  if (!current.isValid()) return false;
  if (tape_ && RunTapeKey(event)) return true;
  const bool control = event.modifiers().testFlag(Qt::ControlModifier);
  const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
  const int step = event.key() == Qt::Key_Left ? -1 : 1;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      PointAt(current.row() + 1, 0);
      if (grid_->on_double_click) grid_->on_double_click();
      return true;
    case Qt::Key_O:
      if (!control) return false;
      header_->on_double_click(current.column());
      return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
      if (!control) return false;
      if (shift) {
        Widen(step * 8);
      } else if (const int to = current.column() + step;
                 current.column() > 0 && to > 0 && to < model_->columnCount()) {
        MoveColumn(current.column(), to);
        setCurrentIndex(model_->index(current.row(), to));
      }
      return true;
    default:
      return false;
  }
}

void GridWidget::keyPressEvent(QKeyEvent* event) {
  if (!grid_ || RunCommandKey(*event)) return;
  const int before = currentIndex().row();
  const bool plain = event->modifiers() == Qt::NoModifier;
  if (plain && event->key() == Qt::Key_Home) {
    setCurrentIndex(model_->index(0, currentIndex().column()));
    scrollToTop();
  } else if (plain && event->key() == Qt::Key_End) {
    setCurrentIndex(model_->index(model_->rowCount() - 1, currentIndex().column()));
    scrollToBottom();
    LetGo();
  } else {
    QTableView::keyPressEvent(event);
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
      HoldUnless(currentIndex().row() == model_->rowCount() - 1);
    }
  }
  const QModelIndex now = currentIndex();
  if (now.row() == before || !now.isValid()) return;
  PointAt(now.row() + 1, now.column());
  if (grid_->on_click) grid_->on_click();
}

// A held key widens some thirty times a second; telling it may cost a write to a file.
void GridWidget::keyReleaseEvent(QKeyEvent* event) {
  QTableView::keyReleaseEvent(event);
  if (event->isAutoRepeat() || !std::exchange(widened_, false)) return;
  if (grid_ && grid_->on_after_user_resize) grid_->on_after_user_resize();
}

}  // namespace qt

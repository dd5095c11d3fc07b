#include "qt/look/grid_widget.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>

#include "qt/look/text.h"
#include "qt/look/theme.h"
#include "qt/ports/twips.h"

namespace qt {
namespace {

constexpr std::chrono::milliseconds kHold{500};
constexpr double kLargestHeading = 16;  // points; above it stand rows of any size

}  // namespace

GridWidget::GridWidget(platform::Grid& grid, QWidget* parent)
    : QTableView(parent),
      grid_(&grid),
      model_(std::make_unique<GridModel>(grid)),
      delegate_(new GridDelegate(grid, this)),
      header_(new GridHeader(this)) {
  setFrameShape(QFrame::NoFrame);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setTabKeyNavigation(false);
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setHorizontalScrollMode(ScrollPerPixel);
  viewport()->setMouseTracking(true);
  viewport()->setAutoFillBackground(true);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  setItemDelegate(delegate_);
  header_->setMaximumSectionSize(ToPixels(kWidestTwips));
  setHorizontalHeader(header_);
  setModel(model_.get());
  JoinHeader();
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &GridWidget::UserScrolled);
  FollowLook();
  FollowWidths();
  FollowCurrent();
}

void GridWidget::ReadAsTape(const QString& empty_text) {
  tape_ = true;
  set_empty_text(empty_text);
  setSelectionMode(ExtendedSelection);
  clearSelection();
  header_->setSectionsMovable(false);
  header_->set_padding(GridDelegate::kTapePadding);
  delegate_->DrawAsTape();
  hold_.setSingleShot(true);
  hold_.setInterval(kHold);
  connect(&hold_, &QTimer::timeout, this, [this] {
    if (!verticalScrollBar()->isSliderDown()) LetGo();
  });
  connect(verticalScrollBar(), &QScrollBar::sliderPressed, this, [this] { HoldUnless(AtEnd()); });
  connect(verticalScrollBar(), &QScrollBar::sliderReleased, this, [this] { HoldUnless(AtEnd()); });
}

void GridWidget::set_empty_text(const QString& text) {
  empty_text_ = text;
  viewport()->update();
}

void GridWidget::Fill(int col) {
  filling_ = col;
  FollowWidths();
}

void GridWidget::Drop() {
  setModel(nullptr);
  setItemDelegate(nullptr);
  if (menu_) menu_->close();
  header_->on_hover = header_->on_click = header_->on_double_click = nullptr;
  header_->on_leave = header_->on_resized = nullptr;
  header_->on_move = nullptr;
  header_->on_resize = nullptr;
  on_menu = nullptr;
  hold_.stop();
  held_ = false;
  grid_ = nullptr;
}

void GridWidget::JoinHeader() {
  header_->on_hover = [this](int col) {
    PointAt(0, col);
    if (grid_->on_mouse_move) grid_->on_mouse_move();
  };
  header_->on_leave = [this] { PointAt(-1, -1); };
  header_->on_click = [this](int col) {
    PointAt(0, col);
    if (grid_->on_click) grid_->on_click();
  };
  header_->on_double_click = [this](int col) {
    PointAt(0, col);
    if (grid_->on_double_click) grid_->on_double_click();
  };
  header_->on_move = [this](int from, int to) { MoveColumn(from, to); };
  header_->on_resize = [this](int col, int width) {
    dragging_ = true;
    grid_->set_width(col, ToTwips(width));
  };
  header_->on_resized = [this] {
    dragging_ = false;
    // Not at once: the heading still takes what changes for the user's doing.
    QTimer::singleShot(0, this, [this] {
      if (grid_) FollowWidths();
    });
    if (grid_->on_after_user_resize) grid_->on_after_user_resize();
  };
  connect(header_, &QHeaderView::sectionHandleDoubleClicked, this, [this](int col) {
    grid_->set_width(col, ToTwips(header_->sectionSize(col)));
    if (grid_->on_after_user_resize) grid_->on_after_user_resize();
  });
}

int GridWidget::LastShownRow() const {
  const int last = rowAt(viewport()->height() - 1);
  return last < 0 ? model_->rowCount() - 1 : last;
}

void GridWidget::Refresh() {
  const platform::Grid::Changes changes = grid_->TakeChanges();
  const QScopedValueRollback<bool> guard(following_, true);
  if (changes.all) FollowLook();
  model_->Follow(changes, std::max(rowAt(0), 0), LastShownRow());
  if (changes.all) FollowWidths();
  FollowTopRow();
  FollowCurrent();
}

void GridWidget::FollowLook() {
  delegate_->TakeFonts();
  if (verticalHeader()->defaultSectionSize() != delegate_->row_height()) {
    verticalHeader()->setDefaultSectionSize(delegate_->row_height());
  }
  QFont heading = delegate_->font();
  heading.setWeight(QFont::Medium);
  heading.setPointSizeF(std::min(heading.pointSizeF(), kLargestHeading));
  if (header_->font() != heading) header_->setFont(heading);
  QPalette ground = viewport()->palette();
  const QColor back = ColorOf(grid_->back_color());
  if (ground.color(QPalette::Base) == back) return;
  ground.setColor(QPalette::Base, back);
  viewport()->setPalette(ground);
}

void GridWidget::FollowWidths() {
  int room = viewport()->width();
  for (int col = 0; col < model_->columnCount(); ++col) room -= ToPixels(grid_->width(col));
  for (int col = 0; col < model_->columnCount(); ++col) {
    // Under the mouse that drags a boundary nothing else moves.
    if (col == filling_ && dragging_) continue;
    const int width = ToPixels(grid_->width(col)) + (col == filling_ ? std::max(room, 0) : 0);
    if (header_->sectionSize(col) != width) header_->resizeSection(col, width);
  }
}

// Screen readers ask for the current cell as soon as there are any, so there always is one.
void GridWidget::FollowCurrent() {
  const QModelIndex current = currentIndex();
  int row = grid_->row() - 1;
  const bool read_elsewhere = tape_ && (held_ || !AtEnd());
  if (row < 0 || read_elsewhere) row = current.isValid() ? current.row() : 0;
  const QModelIndex wanted = model_->index(row, grid_->col());
  if (wanted == current || !wanted.isValid()) return;
  const QScopedValueRollback<bool> guard(following_, true);
  setAutoScroll(false);
  // What the user has chosen on a tape is not lost to the next row that comes.
  selectionModel()->setCurrentIndex(
      wanted, tape_ ? QItemSelectionModel::NoUpdate
                    : QItemSelectionModel::SelectionFlags(QItemSelectionModel::ClearAndSelect |
                                                          QItemSelectionModel::Rows));
  setAutoScroll(true);
}

bool GridWidget::AtEnd() const {
  return verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

// At the end the last row counts as the top one, however many rows the view shows above it.
void GridWidget::TellTopRow() {
  grid_->set_top_row(AtEnd() ? grid_->rows() - 1 : verticalScrollBar()->value() + 1);
  top_seen_ = grid_->top_row();
}

void GridWidget::UserScrolled() {
  if (following_ || !grid_) return;
  TellTopRow();
  HoldUnless(AtEnd());
}

// Rows that come would pull the view back between two turns of the wheel. Who has reached the end
// wants to see them.
void GridWidget::HoldUnless(bool at_end) {
  if (!tape_ || !grid_) return;
  if (at_end) return LetGo();
  held_ = true;
  hold_.start();
}

void GridWidget::LetGo() {
  hold_.stop();
  if (std::exchange(held_, false)) TellTopRow();
}

void GridWidget::FollowTopRow() {
  if (held_ || grid_->top_row() == top_seen_) return;
  top_seen_ = grid_->top_row();
  verticalScrollBar()->setValue(std::max(top_seen_ - 1, 0));
}

void GridWidget::updateGeometries() {
  const QScopedValueRollback<bool> guard(following_, true);
  QTableView::updateGeometries();
  // There may be room now to scroll the top row higher.
  if (top_seen_ > 0 && !held_) verticalScrollBar()->setValue(top_seen_ - 1);
}

void GridWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!grid_) return;
  delegate_->set_current(current, hasFocus());
  UpdateRow(previous.row());
  UpdateRow(current.row());
  if (following_ || !current.isValid()) return;
  grid_->set_row(current.row() + 1);
  grid_->set_col(current.column());
}

void GridWidget::PointAt(int row, int col) {
  grid_->mouse_row = row;
  grid_->mouse_col = col;
}

// Also the parts of a step that don't move the view yet.
void GridWidget::wheelEvent(QWheelEvent* event) {
  QTableView::wheelEvent(event);
  if (event->angleDelta().y() != 0) HoldUnless(AtEnd());
}

void GridWidget::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (grid_ && filling_ >= 0) FollowWidths();
}

void GridWidget::mouseMoveEvent(QMouseEvent* event) {
  QTableView::mouseMoveEvent(event);
  if (!grid_) return;
  const QPoint at = event->position().toPoint();
  const int row = rowAt(at.y());
  SetHover(row);
  PointAt(row < 0 ? -1 : row + 1, columnAt(at.x()));
  if (grid_->on_mouse_move) grid_->on_mouse_move();
}

void GridWidget::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  const QModelIndex hit = indexAt(event->position().toPoint());
  if (!grid_ || event->button() != Qt::LeftButton || !hit.isValid()) return;
  PointAt(hit.row() + 1, hit.column());
  if (grid_->on_click) grid_->on_click();
}

void GridWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex hit = indexAt(event->position().toPoint());
  if (!grid_ || event->button() != Qt::LeftButton || !hit.isValid()) return;
  PointAt(hit.row() + 1, hit.column());
  if (grid_->on_double_click) grid_->on_double_click();
}

void GridWidget::contextMenuEvent(QContextMenuEvent* event) {
  if (!grid_) return;
  if (menu_) menu_->close();
  if (const QModelIndex hit = indexAt(event->pos());
      event->reason() == QContextMenuEvent::Mouse && hit.isValid()) {
    PointAt(hit.row() + 1, hit.column());
    if (grid_->on_click) grid_->on_click();
  }
  menu_ = new QMenu(this);
  menu_->setAttribute(Qt::WA_DeleteOnClose);
  FillMenu(*menu_);
  const bool by_key = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint foot = visualRect(currentIndex()).bottomLeft();
  if (menu_->isEmpty()) return delete menu_;
  // Without a loop of its own, in which this widget could end.
  menu_->popup(by_key ? viewport()->mapToGlobal(foot) : event->globalPos());
}

void GridWidget::FillMenu(QMenu& menu) {
  const int col = currentIndex().column();
  if (tape_ && col >= 0) {
    auto* copy = menu.addAction(QStringLiteral("&Copiar filas"), this, [this] {
      if (grid_) CopyRows();
    });
    copy->setShortcut(QKeySequence::Copy);
  } else if (col >= 0) {
    const QString heading = WithoutMnemonic(grid_->text(0, col)).trimmed();
    auto* sort = menu.addAction(QStringLiteral("&Ordenar por %1").arg(heading), this, [this, col] {
      if (grid_) header_->on_double_click(col);
    });
    sort->setShortcut(Qt::CTRL | Qt::Key_O);
  }
  menu.addSeparator();
  if (on_menu) on_menu(menu);
}

bool GridWidget::viewportEvent(QEvent* event) {
  if (!grid_) return QTableView::viewportEvent(event);
  if (event->type() == QEvent::Enter) {
    // The codes are asked for while a dialog waits for one.
    window()->setAttribute(Qt::WA_AlwaysShowToolTips);
  } else if (event->type() == QEvent::Leave) {
    SetHover(-1);
    PointAt(-1, -1);
  } else if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int row = rowAt(help->y());
    const QRect area(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
    if (row >= 0) {
      QToolTip::showText(help->globalPos(), ToolTipText(grid_->tool_tip()), viewport(), area);
    }
    return true;
  }
  return QTableView::viewportEvent(event);
}

void GridWidget::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  delegate_->set_current(currentIndex(), true);
  UpdateRow(currentIndex().row());
}

void GridWidget::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  delegate_->set_current(currentIndex(), false);
  UpdateRow(currentIndex().row());
}

void GridWidget::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (empty_text_.isEmpty() || model_->rowCount() > 0) return;
  const QColor ground = viewport()->palette().color(QPalette::Base);
  QPainter painter(viewport());
  painter.setFont(TextFont());
  painter.setPen(Mix(ground, ground.lightness() < 128 ? Qt::white : Qt::black, 0.6));
  painter.drawText(viewport()->rect().adjusted(16, 0, -16, 0), Qt::AlignCenter | Qt::TextWordWrap,
                   empty_text_);
}

void GridWidget::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  if (hover_ >= 0) SetHover(rowAt(viewport()->mapFromGlobal(QCursor::pos()).y()));
}

void GridWidget::SetHover(int row) {
  if (row == hover_) return;
  UpdateRow(std::exchange(hover_, row));
  delegate_->set_hover(row);
  UpdateRow(row);
}

void GridWidget::UpdateRow(int row) {
  if (row < 0) return;
  viewport()->update(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
}

}  // namespace qt

#include "qt/look/headed_list.h"

#include <QPainter>
#include <QStyledItemDelegate>

#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kMargin = 8, kHeadHeight = 26;
// Stands for the headings among the lines; no text of a model begins like that.
constexpr char kHeadings[] = "\n";

QRect RoomIn(const QRect& row) { return row.adjusted(kMargin, 0, -kMargin, 0); }

}  // namespace

class HeadedList::Head : public QWidget {
 public:
  Head(const ListColumns& columns, QWidget* parent) : QWidget(parent), columns_(columns) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), tone::kWindow);
    const bool lit = parentWidget()->hasFocus();
    painter.fillRect(0, height() - 2, width(), 2, lit ? tone::kAccent : tone::kLine);
    painter.setFont(TextFont());
    painter.setPen(tone::kMuted);
    columns_.Draw(painter, RoomIn(rect()), 0);
  }

 private:
  const ListColumns& columns_;
};

/// Draws the cells on the ground that the list's own delegate gives a line.
class HeadedList::Cells : public QStyledItemDelegate {
 public:
  Cells(const ListColumns& columns, QAbstractItemDelegate& ground, QObject* parent)
      : QStyledItemDelegate(parent), columns_(columns), ground_(ground) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    ground_.paint(painter, option, {});
    columns_.Draw(*painter, RoomIn(option.rect), static_cast<std::size_t>(index.row()) + 1);
  }
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    return ground_.sizeHint(option, index);
  }
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    return ground_.helpEvent(event, view, option, index);
  }

 private:
  const ListColumns& columns_;
  QAbstractItemDelegate& ground_;
};

HeadedList::HeadedList(platform::ListBox& list, const QStringList& headings, const Split& split,
                       const QList<Qt::Alignment>& alignments, QWidget* parent)
    : ListWidget(list, parent),
      list_(list),
      columns_(
          [headings, split](const QString& line) {
            return line == QLatin1String(kHeadings) ? headings : split(line);
          },
          alignments),
      head_(new Head(columns_, this)) {
  set_cells(split, alignments);
  setItemDelegate(new Cells(columns_, *itemDelegate(), this));
  setViewportMargins(0, kHeadHeight, 0, 0);
  Measure();
}

void HeadedList::Measure() {
  std::vector<std::string> lines{kHeadings};
  // Without rows the model may be gone.
  if (model()->rowCount() > 0) {
    lines.insert(lines.end(), list_.items().begin(), list_.items().end());
  }
  const int before = columns_.width();
  columns_.Measure(lines, font());
  if (columns_.width() != before) head_->update();
}

void HeadedList::paintEvent(QPaintEvent* event) {
  Measure();
  ListWidget::paintEvent(event);
}

void HeadedList::resizeEvent(QResizeEvent* event) {
  ListWidget::resizeEvent(event);
  const QRect below = viewport()->geometry();
  head_->setGeometry(below.x(), below.y() - kHeadHeight, below.width(), kHeadHeight);
}

void HeadedList::focusInEvent(QFocusEvent* event) {
  ListWidget::focusInEvent(event);
  head_->update();
}

void HeadedList::focusOutEvent(QFocusEvent* event) {
  ListWidget::focusOutEvent(event);
  head_->update();
}

}  // namespace qt

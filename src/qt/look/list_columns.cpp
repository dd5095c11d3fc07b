#include "qt/look/list_columns.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "qt/look/text.h"

namespace qt {
namespace {

constexpr int kGap = 20, kNarrowest = 40;

/// Fields of records end in blanks.
QStringList Trimmed(QStringList cells) {
  for (QString& cell : cells) cell = OneLine(cell).trimmed();
  return cells;
}

}  // namespace

ListColumns::ListColumns(Split split, QList<Qt::Alignment> alignments, QStringList headings)
    : split_(std::move(split)),
      alignments_(std::move(alignments)),
      headings_(std::move(headings)) {}

void ListColumns::Measure(const std::vector<std::string>& lines, const QFont& font) {
  const bool added = lines.size() >= lines_.size() &&
                     std::equal(lines_.begin(), lines_.end(), lines.begin()) && font == font_;
  if (!added) {
    font_ = font;
    lines_.clear();
    cells_.clear();
    widths_.clear();
  }
  if (widths_.empty()) Widen(headings_);
  for (std::size_t row = lines_.size(); row < lines.size(); ++row) Add(lines[row]);
}

void ListColumns::Add(const std::string& line) {
  QStringList cells = Trimmed(split_(Text(line)));
  Widen(cells);
  lines_.push_back(line);
  cells_.push_back(std::move(cells));
}

void ListColumns::Widen(const QStringList& cells) {
  const QFontMetrics metrics(font_);
  if (widths_.size() < cells.size()) widths_.resize(cells.size());
  for (qsizetype i = 0; i < cells.size(); ++i) {
    widths_[i] = std::max(widths_[i], metrics.horizontalAdvance(cells[i]));
  }
}

int ListColumns::width() const {
  if (widths_.empty()) return 0;
  const int gaps = kGap * static_cast<int>(widths_.size() - 1);
  return std::accumulate(widths_.begin(), widths_.end(), gaps);
}

QString ListColumns::Joined(const QString& line) const {
  return Trimmed(split_(line)).join(QStringLiteral("  "));
}

Qt::Alignment ListColumns::AlignmentOf(qsizetype column) const {
  return alignments_.value(column, Qt::AlignLeft);
}

QList<int> ListColumns::WidthsIn(int room) const {
  QList<int> widths = widths_;
  for (int over = width() - room; over > 0;) {
    // The widest come down together to the next, as far as it takes.
    QList<qsizetype> widest;
    int most = kNarrowest, next = kNarrowest;
    for (qsizetype i = 0; i < widths.size(); ++i) {
      if (AlignmentOf(i) & Qt::AlignRight) continue;
      if (widths[i] > most) {
        next = std::exchange(most, widths[i]);
        widest.clear();
      }
      if (widths[i] == most) widest << i;
      if (widths[i] < most) next = std::max(next, widths[i]);
    }
    if (most == kNarrowest) break;
    const int count = static_cast<int>(widest.size());
    const int step = std::min(most - next, (over + count - 1) / count);
    for (const qsizetype i : widest) widths[i] -= step;
    over -= count * step;
  }
  return widths;
}

void ListColumns::Draw(QPainter& painter, const QRect& room, std::size_t row) const {
  if (row < cells_.size()) DrawCells(painter, room, cells_[row]);
}

void ListColumns::DrawCells(QPainter& painter, const QRect& room, const QStringList& cells) const {
  const QList<int> widths = WidthsIn(room.width());
  int left = room.left();
  for (qsizetype i = 0; i < cells.size(); left += widths[i++] + kGap) {
    QRect place(left, room.top(), widths[i], room.height());
    place.setRight(std::min(place.right(), room.right()));
    if (place.width() <= 0) return;
    const QString& cell = cells[i];
    const bool whole = place.width() >= widths_[i];
    painter.drawText(
        place, static_cast<int>(AlignmentOf(i) | Qt::AlignVCenter) | Qt::TextSingleLine,
        whole ? cell : painter.fontMetrics().elidedText(cell, Qt::ElideRight, place.width()));
  }
}

}  // namespace qt

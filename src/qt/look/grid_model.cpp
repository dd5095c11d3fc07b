#include "qt/look/grid_model.h"

#include <algorithm>

#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

int ToQt(platform::Align align) {
  switch (align) {
    case platform::Align::left:
      return int(Qt::AlignLeft | Qt::AlignVCenter);
    case platform::Align::center:
      return int(Qt::AlignCenter);
    case platform::Align::right:
      break;
  }
  return int(Qt::AlignRight | Qt::AlignVCenter);
}

}  // namespace

GridModel::GridModel(const platform::Grid& grid)
    : grid_(grid), rows_(std::max(grid.rows() - 1, 0)), cols_(grid.cols()) {}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }
int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : cols_; }

void GridModel::FollowSizes() {
  const int rows = std::max(grid_.rows() - 1, 0);
  const int cols = grid_.cols();
  if (cols > cols_) {
    beginInsertColumns({}, cols_, cols - 1);
    cols_ = cols;
    endInsertColumns();
  } else if (cols < cols_) {
    beginRemoveColumns({}, cols, cols_ - 1);
    cols_ = cols;
    endRemoveColumns();
  }
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
}

void GridModel::Follow(const platform::Grid::Changes& changes, int first_shown, int last_shown) {
  FollowSizes();
  if (cols_ == 0) return;
  const auto changed = [this](int first, int last) {
    if (first <= last) Q_EMIT dataChanged(index(first, 0), index(last, cols_ - 1));
  };
  const int last = std::min(last_shown, rows_ - 1);
  const bool heading = !changes.rows.empty() && changes.rows.front().first == 0;
  if (changes.all || heading) Q_EMIT headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
  if (changes.all) return changed(first_shown, last);
  for (const auto& span : changes.rows) {
    changed(std::max(span.first - 1, first_shown), std::min(span.last - 1, last));
  }
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = index.row() + 1;
  const int col = index.column();
  switch (role) {
    case Qt::DisplayRole:
      return Text(grid_.text(row, col));
    case Qt::TextAlignmentRole:
      return ToQt(grid_.align(col));
    case Qt::ForegroundRole:
      return ColorOf(grid_.fore(row, col));
    case Qt::BackgroundRole:
      return ColorOf(grid_.back(row, col));
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    return role == Qt::DisplayRole ? QVariant(Text(grid_.text(section + 1, 0)).trimmed())
                                   : QVariant();
  }
  if (role == Qt::DisplayRole) return Text(grid_.text(0, section)).trimmed();
  if (role == Qt::TextAlignmentRole) return ToQt(grid_.align(section));
  return {};
}

}  // namespace qt

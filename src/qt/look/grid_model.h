#pragma once

#include <QAbstractTableModel>

#include "platform/grid.h"

namespace qt {

/// A grid to Qt, without a copy: its row 0 is the heading, its row 1 Qt's row 0. Sizes follow in
/// `Follow` alone, so that Qt never sees them change unannounced.
class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(const platform::Grid& grid);

  /// Tells Qt what has changed. Of changed rows only those from `first_shown` to `last_shown`
  /// (Qt's numbers) are told of, for nobody keeps anything of the others.
  void Follow(const platform::Grid::Changes& changes, int first_shown, int last_shown);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  void FollowSizes();

  const platform::Grid& grid_;
  int rows_ = 0, cols_ = 0;
};

}  // namespace qt

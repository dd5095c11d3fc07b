#pragma once

#include <QStyledItemDelegate>

namespace qt {

/// The lines of a list that comes up below a field: in one line each, without the blanks at its
/// end, of which there are often many; cut with an ellipsis.
class PopupRows : public QStyledItemDelegate {
 public:
  static constexpr int kRowHeight = 28;
  static constexpr int kMargin = 9;    // at either side
  static constexpr int kWidest = 480;  // that such a list should be

  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
};

/// Length of `text` without the blanks at its end.
[[nodiscard]] qsizetype VisibleLength(QStringView text);

}  // namespace qt

#include "qt/look/popup_rows.h"

#include <QPainter>

#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

QString Shown(const QModelIndex& index) {
  const QString line = OneLine(index.data().toString());
  return line.left(VisibleLength(line));
}

}  // namespace

void PopupRows::paint(QPainter* painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const {
  const bool lit = option.state.testFlag(QStyle::State_Selected);
  if (lit) {
    painter->fillRect(option.rect, tone::kAccent);
  } else if (option.state.testFlag(QStyle::State_MouseOver)) {
    painter->fillRect(option.rect, Mix(tone::kRaised, tone::kAccent, 0.2));
  }
  const QRect room = option.rect.adjusted(kMargin, 0, -kMargin, 0);
  painter->setFont(option.font);
  painter->setPen(lit ? tone::kOnAccent : tone::kText);
  painter->drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                    option.fontMetrics.elidedText(Shown(index), Qt::ElideRight, room.width()));
}

QSize PopupRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return {option.fontMetrics.horizontalAdvance(Shown(index)) + 2 * kMargin, kRowHeight};
}

qsizetype VisibleLength(QStringView text) {
  while (text.endsWith(u' ')) text.chop(1);
  return text.size();
}

}  // namespace qt

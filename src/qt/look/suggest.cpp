#include "qt/look/suggest.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QScreen>

#include "base/text.h"
#include "qt/look/popup_rows.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

using Found = std::vector<store::Sugerencia>;

constexpr int kCode = Qt::UserRole;

/// The first is what was typed, and no longer code begins so.
bool Complete(const Found& found, std::string_view typed) {
  const std::string code = base::UpperUtf8(base::Trim(typed));
  const auto upper = [](const store::Sugerencia& each) { return base::UpperUtf8(each.codigo); };
  if (found.empty() || upper(found.front()) != code) return false;
  return std::ranges::none_of(found, [&](const store::Sugerencia& each) {
    const std::string other = upper(each);
    return other != code && other.starts_with(code);
  });
}

/// The list below a field. A popup would grab the mouse and swallow the press that closes it, so it
/// is a window like that of a tool tip, and the keyboard stays in the field.
class SuggestionList : public QObject {
 public:
  SuggestionList(platform::TextBox& box, QLineEdit& field, QObject* parent)
      : QObject(parent), box_(box), field_(field), list_(new QListWidget(&field)) {
    list_->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    list_->setAttribute(Qt::WA_ShowWithoutActivating);
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setFocusProxy(&field_);  // lines are told to those who can't see them
    list_->setFont(field_.font());
    QPalette colors = list_->palette();
    colors.setColor(QPalette::Base, tone::kRaised);
    list_->setPalette(colors);
    list_->setMouseTracking(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setItemDelegate(new PopupRows(list_));
    list_->setAccessibleName(QStringLiteral("Sugerencias"));
    connect(list_, &QListWidget::itemClicked, this, [this] { Take(); });
  }
  ~SuggestionList() override { list_->hide(); }

  void Show(const Found& found, std::string_view typed) {
    // A code of full length may have led to the next field.
    if (found.empty() || !field_.hasFocus() || Complete(found, typed)) return Close();
    list_->clear();
    for (const auto& [code, name] : found) {
      auto* line = new QListWidgetItem(Text(code + "   " + name), list_);
      line->setData(kCode, Text(code));
    }
    Place();
    if (list_->isVisible()) return;
    list_->show();
    qApp->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
        return watched == &field_ && HandleKey(static_cast<QKeyEvent*>(event)->key());
      case QEvent::MouseButtonPress:
        if (watched->isWidgetType() && static_cast<QWidget*>(watched)->window() != list_) Close();
        break;
      case QEvent::FocusOut:
      case QEvent::Hide:
      case QEvent::Move:
        if (watched == &field_ || watched == field_.window()) Close();
        break;
      default:
        break;
    }
    return false;
  }

 private:
  void Place() {
    const int frame = 2 * list_->frameWidth();
    const int wanted = list_->sizeHintForColumn(0) + frame;
    const QSize size(std::max(field_.width(), std::min(wanted, PopupRows::kWidest)),
                     list_->count() * PopupRows::kRowHeight + frame);
    const QRect screen = field_.screen()->availableGeometry();
    QRect place(field_.mapToGlobal(QPoint(0, field_.height())), size);
    if (place.bottom() > screen.bottom()) place.moveBottom(field_.mapToGlobal(QPoint()).y() - 1);
    place.moveLeft(std::max(screen.left(), std::min(place.left(), screen.right() - size.width())));
    list_->setGeometry(place);
  }

  void Close() {
    qApp->removeEventFilter(this);
    list_->hide();
  }

  /// Whether the key is meant for the list.
  bool HandleKey(int key) {
    switch (key) {
      case Qt::Key_Down:
        Step(1);
        return true;
      case Qt::Key_Up:
        Step(-1);
        return true;
      case Qt::Key_Return:
      case Qt::Key_Enter:
        Take();
        return true;
      case Qt::Key_Escape:
        Close();
        return true;
      default:
        return false;
    }
  }

  /// In a circle, on which there is a place for no line between the last and the first.
  void Step(int by) {
    const int places = list_->count() + 1;
    const int row = (list_->currentRow() + 1 + by + places) % places - 1;
    list_->setCurrentRow(row);
    if (row < 0) list_->clearSelection();
  }

  void Take() {
    Close();
    const QListWidgetItem* line = list_->currentItem();
    if (!line) return;
    const QString code = line->data(kCode).toString();
    field_.setText(code);
    box_.set_text(code.toStdString());
  }

  platform::TextBox& box_;
  QLineEdit& field_;
  QListWidget* list_;
};

}  // namespace

void Suggest(std::function<Found(std::string_view)> find, platform::TextBox& box, QLineEdit& field,
             Binders& binders) {
  auto* list = new SuggestionList(box, field, binders.context());
  QObject::connect(&field, &QLineEdit::textEdited, list,
                   [find = std::move(find), list](const QString& text) {
                     const std::string typed = text.toStdString();
                     list->Show(find(typed), typed);
                   });
}

}  // namespace qt

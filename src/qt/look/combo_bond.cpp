#include "qt/look/combo_bond.h"

#include <algorithm>
#include <array>

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>

#include "qt/look/popup_rows.h"
#include "qt/look/text.h"

namespace qt {
namespace {

constexpr int kRows = 12, kLeastCharacters = 12;

bool OpensOrSteps(const QEvent& event) {
  if (event.type() == QEvent::MouseButtonPress) return true;
  if (event.type() != QEvent::KeyPress) return false;
  constexpr std::array kKeys{Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown,
                             Qt::Key_F4};
  return std::ranges::find(kKeys, static_cast<const QKeyEvent&>(event).key()) != kKeys.end();
}

}  // namespace

ComboBond::ComboBond(platform::ComboBox& box, QComboBox& widget, QObject* parent)
    : QObject(parent), box_(box), widget_(widget) {
  widget.setEditable(true);
  widget.setInsertPolicy(QComboBox::NoInsert);
  widget.setCompleter(nullptr);
  widget.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  if (widget.minimumContentsLength() == 0) widget.setMinimumContentsLength(kLeastCharacters);
  widget.setMaxVisibleItems(kRows);
  widget.setItemDelegate(new PopupRows(&widget));
  QLineEdit* line = widget.lineEdit();
  line->setTextMargins(6, 0, 0, 0);
  // Qt would take a text that is left typed for the choice of the entry that reads the same.
  disconnect(line, &QLineEdit::editingFinished, &widget, nullptr);
  connect(line, &QLineEdit::textEdited, this,
          [this](const QString& text) { box_.set_text(text.toStdString()); });
  connect(&widget, &QComboBox::activated, this, &ComboBond::Choose);
  widget.installEventFilter(this);
  line->installEventFilter(this);
}

void ComboBond::Show() {
  if (shown_ != box_.items()) Fill();
  const QString text = Text(box_.text());
  if (widget_.currentText() != text) ShowText(text);
}

// One who comes by reads a text from its beginning; one who is there goes on behind what is to be
// seen of it.
void ComboBond::ShowText(const QString& text) {
  widget_.setEditText(text);
  FitIndex();
  const qsizetype end = widget_.hasFocus() ? VisibleLength(text) : 0;
  widget_.lineEdit()->setCursorPosition(static_cast<int>(end));
}

void ComboBond::Fill() {
  widget_.hidePopup();
  shown_ = box_.items();
  QLineEdit& line = *widget_.lineEdit();
  const QString text = line.text();
  const int at = line.cursorPosition();
  widget_.clear();
  for (const std::string& item : shown_) widget_.addItem(Text(item));
  line.setText(text);
  line.setCursorPosition(at);
  QAbstractItemView& list = *widget_.view();
  const int bar = list.verticalScrollBar()->sizeHint().width() + PopupRows::kMargin;
  list.setMinimumWidth(qMin(list.sizeHintForColumn(0) + bar, PopupRows::kWidest));
  FitIndex();
}

// The entry from which the arrow keys step and that a popup shows lit: it bears the text, whichever
// of several that do was chosen last. While the user types it is left alone, as Qt moves the cursor
// along with it.
void ComboBond::FitIndex() {
  QLineEdit& line = *widget_.lineEdit();
  const QString text = line.text();
  const int index = widget_.currentIndex();
  if (index >= 0 && widget_.itemText(index) == text) return;
  const int at = line.cursorPosition();
  widget_.setCurrentIndex(widget_.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
  if (line.text() != text) line.setText(text);
  line.setCursorPosition(at);
}

void ComboBond::Choose(int index) {
  // An entry of a list that has been filled anew since it was drawn is none.
  if (shown_ == box_.items()) box_.Click(index);
  Show();
  // Qt has written the chosen entry by itself.
  ShowText(Text(box_.text()));
}

bool ComboBond::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &widget_ && event->type() == QEvent::Wheel) {
    event->ignore();
    return true;
  }
  if (watched == &widget_ && OpensOrSteps(*event)) FitIndex();
  if (watched != &widget_ && event->type() == QEvent::MouseButtonDblClick &&
      static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
    box_.DoubleClick();
  }
  return false;
}

}  // namespace qt

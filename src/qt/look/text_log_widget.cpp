#include "qt/look/text_log_widget.h"

#include <algorithm>

#include <QGuiApplication>
#include <QScrollBar>
#include <QTextBlock>

#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

/// Without what a text document takes for borders of its own.
QString WithoutBorders(const QString& line) {
  QString plain = OneLine(line);
  for (const char16_t border : {u'\xfdd0', u'\xfdd1'}) plain.replace(border, u' ');
  return plain;
}

}  // namespace

/// What of the text stands where in the view, however many lines go before it.
class TextLogWidget::Place {
 public:
  explicit Place(TextLogWidget& view)
      : view_(view), first_(view.firstVisibleBlock()), into_(Value() - Line()) {
    first_.setKeepPositionOnInsert(true);
  }
  void Restore() const { view_.verticalScrollBar()->setValue(Line() + into_); }

 private:
  [[nodiscard]] int Value() const { return view_.verticalScrollBar()->value(); }
  [[nodiscard]] int Line() const { return first_.block().firstLineNumber(); }

  TextLogWidget& view_;
  QTextCursor first_;
  int into_;  // lines
};

TextLogWidget::TextLogWidget(const platform::TextLog& log, QWidget* parent)
    : QPlainTextEdit(parent), log_(&log) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setFont(TextFont());
  QPalette colors = palette();
  colors.setColor(QPalette::Base, tone::kGround);
  setPalette(colors);
}

bool TextLogWidget::EndInSight() const {
  return verticalScrollBar()->value() >= verticalScrollBar()->maximum();
}

bool TextLogWidget::Selecting() const {
  return textCursor().hasSelection() ||
         (QGuiApplication::mouseButtons() != Qt::NoButton && viewport()->underMouse());
}

void TextLogWidget::Refresh() {
  if (!log_ || seen_ == log_->end()) return;
  const std::size_t all = log_->lines().size();
  const std::size_t fresh = std::min(log_->end() - seen_, all);
  seen_ = log_->end();
  const bool follow = EndInSight() && !Selecting();
  const Place place(*this);
  TakeOutFirst(shown_ + fresh - all);
  Append(LastLines(fresh));
  shown_ = all;
  if (!Selecting()) moveCursor(QTextCursor::End);
  follow ? verticalScrollBar()->setValue(verticalScrollBar()->maximum()) : place.Restore();
}

QString TextLogWidget::LastLines(std::size_t count) const {
  const auto& lines = log_->lines();
  QString text;
  for (std::size_t i = lines.size() - count; i < lines.size(); ++i) {
    text += WithoutBorders(Text(lines[i]));
    if (i + 1 < lines.size()) text += u'\n';
  }
  return text;
}

void TextLogWidget::TakeOutFirst(std::size_t count) {
  if (count == 0) return;
  if (count >= shown_) {
    clear();
    shown_ = 0;
    return;
  }
  QTextCursor lines(document());
  // By position: a step over a line lays it out.
  lines.setPosition(document()->findBlockByNumber(static_cast<int>(count)).position(),
                    QTextCursor::KeepAnchor);
  lines.removeSelectedText();
  shown_ -= count;
}

void TextLogWidget::Append(const QString& text) {
  // A selection that reaches to the end would grow with it.
  QTextCursor chosen = textCursor();
  const int anchor = chosen.anchor(), position = chosen.position();
  QTextCursor end(document());
  end.movePosition(QTextCursor::End);
  end.insertText(shown_ > 0 ? u'\n' + text : text);
  if (anchor == position) return;
  chosen.setPosition(anchor);
  chosen.setPosition(position, QTextCursor::KeepAnchor);
  setTextCursor(chosen);
}

void TextLogWidget::resizeEvent(QResizeEvent* event) {
  const bool follow = EndInSight();
  QPlainTextEdit::resizeEvent(event);
  if (follow) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

}  // namespace qt

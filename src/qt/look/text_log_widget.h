#pragma once

#include <cstddef>

#include <QPlainTextEdit>

#include "platform/text_log.h"

namespace qt {

/// The lines of a text log, to be read and copied. After each change the caret stands at the end,
/// and the end stays in sight where it was; what the user is selecting or has scrolled back to
/// stays as it is. Until `Drop` the model must live.
class TextLogWidget : public QPlainTextEdit {
 public:
  explicit TextLogWidget(const platform::TextLog& log, QWidget* parent = nullptr);

  /// Adds what is new, all in one go.
  void Refresh();
  /// The model goes away; the text stays.
  void Drop() { log_ = nullptr; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Place;

  [[nodiscard]] bool EndInSight() const;
  [[nodiscard]] bool Selecting() const;
  [[nodiscard]] QString LastLines(std::size_t count) const;
  void TakeOutFirst(std::size_t count);
  void Append(const QString& text);

  const platform::TextLog* log_;
  std::size_t seen_ = 0;   // of the log's lines, as its end() counts
  std::size_t shown_ = 0;  // lines in the widget
};

}  // namespace qt

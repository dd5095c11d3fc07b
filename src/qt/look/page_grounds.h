#pragma once

#include <QPixmap>
#include <QWidget>

namespace qt {

/// A quiet picture of ours, repeated from the top left corner over the whole widget.
class PageGround : public QWidget {
 public:
  enum class Pattern { waves, dots };
  PageGround(Pattern pattern, QWidget* parent) : QWidget(parent), pattern_(pattern) {}

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Pattern pattern_;
  QPixmap tile_;  // as sharp as the screen that it was last drawn for
};

}  // namespace qt

#pragma once

#include <QMdiArea>

namespace qt {

/// Where the inner windows stand: a calm ground with the program's name.
class DeskArea : public QMdiArea {
 public:
  explicit DeskArea(QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override { return {1240, 640}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace qt

#pragma once

#include <functional>

#include <QAbstractButton>
#include <QLabel>

#include "platform/controls.h"

namespace qt {

/// A label that shows plain text on a rounded ground.
class LabelWidget : public QLabel {
 public:
  explicit LabelWidget(QWidget* parent = nullptr);

  /// Transparent by default.
  void set_ground(const QColor& ground);
  std::function<void()> on_click, on_double_click;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  QColor ground_ = Qt::transparent;
};

/// A picture that works as a button.
class PictureWidget : public QAbstractButton {
 public:
  static constexpr int kSide = 28;

  explicit PictureWidget(QWidget* parent = nullptr);
  void set_picture(platform::Picture picture);
  [[nodiscard]] QSize sizeHint() const override { return {kSide, kSide}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  platform::Picture picture_ = platform::Picture::none;
};

/// A text of ours in a quiet colour.
[[nodiscard]] QLabel* QuietLabel(const QString& text, const QFont& font, QWidget* parent);

}  // namespace qt

#pragma once

#include <functional>

#include <QAbstractButton>
#include <QLabel>
#include <QStaticText>

#include "platform/controls.h"

namespace qt {

/// A label that shows one line of plain text on a rounded ground, edged where its colour alone
/// would not be read there, and narrower where it wouldn't fit.
class LabelWidget : public QLabel {
 public:
  explicit LabelWidget(QWidget* parent = nullptr);

  /// As `setText`, after which the edge of the old text may be left standing.
  void ShowText(const QString& text);
  /// By default the ink of the palette on no ground.
  void set_colors(const QColor& ink, const QColor& ground);
  /// A line around the ground. Being about to be pressed, and the keyboard, then show on it, and
  /// leave the colours of the text alone.
  void set_edge(const QColor& edge);
  /// What stands, quietly, in the place of a text that is empty or all blanks. None by default.
  void set_blank_mark(const QString& mark);
  /// Whether it works as a link: by the keyboard as well, and told as one. To be set before it is
  /// first shown.
  void set_pressable(bool pressable);
  [[nodiscard]] bool pressable() const { return pressable_; }
  std::function<void()> on_click, on_double_click;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  static constexpr double kRadius = 5;

  /// Whether the mouse is on it and would press it.
  [[nodiscard]] bool Lit() const;
  void DrawEdge(QPainter& painter) const;
  void DrawLaid(QPainter& painter) const;

  QColor ink_, ground_, edge_;  // invalid: not set
  bool pressable_ = false;
  QString blank_mark_;
  QStaticText laid_;  // what was last drawn
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

/// A band across the window, with a line that parts it from the area in the middle.
class Band : public QWidget {
 public:
  /// `line` is its upper or its lower edge.
  Band(Qt::Edge line, const QColor& ground, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::Edge line_;
  QColor ground_;
};

/// A text of ours in a quiet colour.
[[nodiscard]] QLabel* QuietLabel(const QString& text, const QFont& font, QWidget* parent);

}  // namespace qt

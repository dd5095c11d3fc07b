#pragma once

#include <functional>

#include <QHeaderView>

namespace qt {

/// The heading of a grid. Tells what the user does by hooks, all with Qt's numbers.
class GridHeader : public QHeaderView {
 public:
  explicit GridHeader(QWidget* parent);

  /// Pixels left and right of a heading.
  void set_padding(int padding) { padding_ = padding; }

  /// The mouse moves over a heading, or over the strip behind the last one: col -1.
  std::function<void(int col)> on_hover;
  std::function<void()> on_leave;
  std::function<void(int col)> on_click, on_double_click;
  /// A column was dragged; the heading itself is back as it was.
  std::function<void(int from, int to)> on_move;
  /// At each step of a drag of a boundary; then once when it is let go.
  std::function<void(int col, int width)> on_resize;
  std::function<void()> on_resized;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int logical) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  [[nodiscard]] QSize sectionSizeFromContents(int logical) const override;

 private:
  void SectionMoved(int from, int to);
  void SetHover(int col);
  /// Ends a drag; false if nothing was pressed.
  bool LetGo();

  bool pressed_ = false, resized_ = false, moving_back_ = false, moved_ = false;
  int hover_ = -1;
  int padding_;
};

}  // namespace qt

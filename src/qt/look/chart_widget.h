#pragma once

#include <optional>

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QPixmap>
#include <QWidget>

#include "charts/chart.h"
#include "qt/look/chart_commands.h"

namespace qt {

class ChartPlot;

/// A chart on the screen. What is new is drawn four times a second at most, less often where that
/// would take more than a hundredth of the time, and not at all while it can't be seen; what the
/// user does is drawn at once. While the chart is out of sight its last picture stands there, faded
/// and stretched. The chart must live until `Drop`.
///
/// Wheel, + and - look closer and away, dragging and Shift+Left/Right move, a double click and Home
/// show everything. The crosshair follows the pointer, or Left/Right (with Ctrl ten records at a
/// time) until Esc. Right button or menu key open the commands; what nobody has a hook for isn't
/// among them.
class ChartWidget : public QWidget {
 public:
  static constexpr int kGapMs = 250;

  explicit ChartWidget(charts::Chart& chart, QWidget* parent = nullptr);
  ~ChartWidget() override;

  /// Brings the screen up to the chart.
  void Refresh();
  void Drop();
  /// Tells what is to be seen in a sentence: of the record below the crosshair, else of all.
  [[nodiscard]] QString Description() const;

  [[nodiscard]] QSize sizeHint() const override { return {600, 400}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool Empty() const;
  /// Puts the drawing, its last picture or nothing there, whichever it is time for.
  void Arrange();
  [[nodiscard]] QRect Inside() const;
  [[nodiscard]] bool Seen() const;
  /// Draws what is new, now or as soon as it may.
  void Pace();
  void DrawNow();

  [[nodiscard]] bool RunMove(const QKeyEvent& event);
  [[nodiscard]] bool RunCommand(const QKeyEvent& event);
  void Zoom(double x, double factor);
  void Pan(double part);
  void ShowAll();
  void Point(const std::optional<charts::Senalado>& at);
  void PointAt(const QPoint& place);
  void Step(int records);
  [[nodiscard]] ChartCommands Commands();
  void ToggleBar();
  void SavePicture();

  charts::Chart* chart_;  // nullptr once it is gone
  ChartPlot* plot_;
  QWidget* bar_ = nullptr;  // once it has been asked for
  std::function<ChartCommands()> commands_;
  QPixmap still_;  // while the chart is out of sight
  bool out_ = false;
  bool stale_ = true;  // something is new since the last drawing
  QBasicTimer timer_;  // until the next drawing may come
  QElapsedTimer since_drawn_;
  std::optional<QPoint> dragged_;
};

}  // namespace qt

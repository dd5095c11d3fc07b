#pragma once

#include <functional>
#include <vector>

#include "qt/look/chart_pointer.h"

namespace qt {

/// The drawing of a chart: lines over the volume, along one axis of time, with the price at their
/// right. Takes from the chart what is new whenever it draws; takes no input. The chart must live
/// until `Drop`.
class ChartPlot : public QCustomPlot {
 public:
  static constexpr QSize kLeast{60, 40};  // to be shown at all

  ChartPlot(const charts::Chart& chart, QWidget* parent);

  void Drop() { scene_.chart = nullptr; }
  /// Before the next turn of the event loop ends, once however often it is called.
  void Draw() { replot(rpQueuedReplot); }
  [[nodiscard]] ChartPointer& pointer() const { return *pointer_; }
  /// All without the pointer, `scale` pixels for each of its own.
  [[nodiscard]] QPixmap Picture(double scale);

  [[nodiscard]] double TimeAt(double x) const { return scene_.time->pixelToCoord(x); }
  /// The part of what is seen that so many pixels are.
  [[nodiscard]] double PartOf(double pixels) const;
  /// Where lines or volume are drawn.
  [[nodiscard]] bool Covers(const QPoint& place) const;

  /// What it has drawn last comes to the screen.
  std::function<void()> on_paint;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Line {
    QCPGraph* graph;
    std::size_t taken = 0;
    unsigned generation = 0;
  };

  void SetUp(QCPAxisRect& rect) const;
  void Take();
  void TakeLine(Line& line, const charts::Linea& from);
  void MakeLines();
  void FitAxes();
  [[nodiscard]] QCPRange PriceRange() const;
  void ArrangeVolume();

  ChartScene scene_;
  QCPAxisRect *prices_, *volumes_;
  ChartPointer* pointer_ = nullptr;
  std::vector<Line> lines_;
  std::size_t series_ = 0;
};

}  // namespace qt

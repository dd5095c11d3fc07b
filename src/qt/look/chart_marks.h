#pragma once

#include "qt/look/chart_axes.h"

// What is drawn on a chart besides its lines, each for the scene, which outlives it.
namespace qt {

/// The colour of line `index`.
[[nodiscard]] QColor LineColor(std::size_t index);

class ChartMark : public QCPLayerable {
 public:
  ChartMark(const ChartScene& scene, QCustomPlot& plot, const QString& layer)
      : QCPLayerable(&plot, layer), scene_(scene) {}

 protected:
  [[nodiscard]] const ChartScene& scene() const { return scene_; }
  [[nodiscard]] QRect prices() const { return scene_.price->axisRect()->rect(); }
  void applyDefaultAntialiasingHint(QCPPainter*) const override {}

 private:
  const ChartScene& scene_;
};

/// What was traded in each minute; of several on one column of pixels the most.
class VolumeBars : public ChartMark {
 public:
  using ChartMark::ChartMark;

 protected:
  [[nodiscard]] QRect clipRect() const override;
  void draw(QCPPainter* painter) override;
};

/// A dashed line at the last price of the first series, and the price beside the axis.
class LastPrice : public ChartMark {
 public:
  using ChartMark::ChartMark;

 protected:
  void draw(QCPPainter* painter) override;
};

/// The names of the lines, where there are several.
class LineNames : public ChartMark {
 public:
  using ChartMark::ChartMark;

 protected:
  [[nodiscard]] QRect clipRect() const override { return prices(); }
  void draw(QCPPainter* painter) override;
};

}  // namespace qt

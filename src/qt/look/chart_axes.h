#pragma once

#include "charts/chart.h"
#include "qt/look/custom_plot.h"

namespace qt {

/// What a chart is drawn from, and the axes that it is drawn along. `chart` is nullptr once it is
/// gone.
struct ChartScene {
  const charts::Chart* chart = nullptr;
  QCPAxis *time = nullptr, *price = nullptr, *volume_time = nullptr;
  charts::Vista seen{};  // as of the last drawing
};

/// A price of the chart as it is written beside it: never longer than fits there.
[[nodiscard]] QString PriceText(const charts::Chart& chart, double price);

/// The stretch from `low` to `high`, widened to one that an axis can show.
[[nodiscard]] QCPRange RangeOf(double low, double high);

/// Marks of the hour: steps that a clock has, with seconds only where they differ.
class TimeTicker : public QCPAxisTicker {
 protected:
  double getTickStep(const QCPRange& range) override;
  int getSubTickCount(double) override { return 0; }
  QString getTickLabel(double tick, const QLocale&, QChar, int) override;

 private:
  double step_ = 1;
};

/// Marks of the price, none finer than its decimals. The scene outlives it.
class PriceTicker : public QCPAxisTicker {
 public:
  explicit PriceTicker(const ChartScene& scene) : scene_(scene) {}

 protected:
  double getTickStep(const QCPRange& range) override;
  int getSubTickCount(double) override { return 0; }
  QString getTickLabel(double tick, const QLocale&, QChar, int) override;

 private:
  const ChartScene& scene_;
};

}  // namespace qt

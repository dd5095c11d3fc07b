#pragma once

#include <optional>

#include "qt/look/chart_marks.h"

namespace qt {

/// A line of what is known of a record.
struct RecordLine {
  QString name, value;
};
[[nodiscard]] QVector<RecordLine> DescribeRecord(const charts::Chart& chart,
                                                 const charts::Senalado& record);

/// The crosshair on a record, and what is known of that in a box beside it: only time and price in
/// a small chart. Drawn by itself, without the lines.
class ChartPointer : public ChartMark {
 public:
  ChartPointer(const ChartScene& scene, QCustomPlot& plot);

  /// nullopt puts it away.
  void Show(const std::optional<charts::Senalado>& at);
  [[nodiscard]] const std::optional<charts::Senalado>& at() const { return at_; }

 protected:
  void draw(QCPPainter* painter) override;

 private:
  void DrawBox(QCPPainter& painter, const QPoint& at) const;

  std::optional<charts::Senalado> at_;
};

}  // namespace qt

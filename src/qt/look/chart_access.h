#pragma once

#include <QString>

#include "charts/chart.h"

// What a chart says to those who can't see it.
namespace qt {

class ChartWidget;

[[nodiscard]] QString DescribeAll(const charts::Chart& chart);
[[nodiscard]] QString DescribeAt(const charts::Chart& chart, const charts::Senalado& record);

/// From now on chart widgets are told as charts, with a description that is made when it is asked
/// for. One without a name is called as the window that it stands in.
void TellCharts();
/// The description has become another one.
void TellChanged(ChartWidget& widget);

}  // namespace qt

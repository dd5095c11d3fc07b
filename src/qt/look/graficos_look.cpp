#include "qt/look/binders.h"
#include "qt/look/chart_looks.h"
#include "qt/look/chart_widget.h"

namespace qt {

Look MakeChartLook(charts::Graficos& window, FrameClock& clock) {
  auto* chart = new ChartWidget(window.Gr1);
  chart->setMinimumSize(240, 150);
  auto binders = std::make_shared<Binders>(*chart, clock);
  binders->Bind(window.Gr1, *chart);
  return {.widget = chart,
          .place = Place::child,
          .widget_of = [b = binders.get()](platform::Control& c) { return b->WidgetOf(c); },
          .bond = binders};
}

}  // namespace qt

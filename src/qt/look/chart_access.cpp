#include "qt/look/chart_access.h"

#include <algorithm>

#include <QAccessibleWidget>
#include <QMdiSubWindow>

#include "qt/look/chart_pointer.h"
#include "qt/look/chart_widget.h"
#include "qt/look/text.h"

namespace qt {
namespace {

class ChartInterface : public QAccessibleWidget {
 public:
  explicit ChartInterface(ChartWidget& widget)
      : QAccessibleWidget(&widget, QAccessible::Chart), widget_(widget) {}

  [[nodiscard]] QString text(QAccessible::Text part) const override {
    if (part == QAccessible::Description) return widget_.Description();
    if (part != QAccessible::Name || !widget_.accessibleName().isEmpty()) {
      return QAccessibleWidget::text(part);
    }
    const QWidget* above = widget_.parentWidget();
    while (above && !qobject_cast<const QMdiSubWindow*>(above)) above = above->parentWidget();
    return above ? above->windowTitle() : QAccessibleWidget::text(part);
  }

 private:
  ChartWidget& widget_;
};

QAccessibleInterface* ChartOf(const QString& name, QObject* object) {
  // By its class first: the web view brings objects that have no type at run time.
  if (name != QLatin1String("QWidget")) return nullptr;
  auto* widget = dynamic_cast<ChartWidget*>(object);
  return widget ? new ChartInterface(*widget) : nullptr;
}

}  // namespace

QString DescribeAll(const charts::Chart& chart) {
  const auto& points = chart.linea(0).puntos;
  if (points.empty()) return QStringLiteral("Sin datos todavía");
  const auto [low, high] = std::ranges::minmax(points, {}, &charts::Punto::y);
  const auto time = [](double x) { return Text(charts::Chart::TextoHora(x)); };
  return QStringLiteral("Último %1, entre %2 y %3, de %4 a %5")
      .arg(PriceText(chart, points.back().y), PriceText(chart, low.y), PriceText(chart, high.y),
           time(points.front().x), time(points.back().x));
}

QString DescribeAt(const charts::Chart& chart, const charts::Senalado& record) {
  QStringList lines;
  for (const RecordLine& line : DescribeRecord(chart, record)) {
    lines << line.name + u' ' + line.value;
  }
  return lines.join(QStringLiteral(", "));
}

void TellCharts() { QAccessible::installFactory(ChartOf); }

void TellChanged(ChartWidget& widget) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent changed(&widget, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&changed);
}

}  // namespace qt

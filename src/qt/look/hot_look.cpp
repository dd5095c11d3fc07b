#include "qt/look/hot_look.h"

#include <QVBoxLayout>

#include "qt/look/board_look.h"
#include "qt/look/chart_widget.h"
#include "qt/look/grid_widget.h"
#include "qt/look/small_widgets.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kMargin = 8, kGap = 6, kLeastGrid = 76;
constexpr QSize kLeastChart{140, 90};
constexpr auto kToTheRight = Qt::AlignRight | Qt::AlignVCenter;

void AddChart(QHBoxLayout& row, int stretch, const QString& title, charts::Chart& model,
              Binders& binders) {
  auto* column = new QVBoxLayout;
  column->setSpacing(2);
  column->addWidget(QuietLabel(title, SmallFont(), nullptr));
  auto* chart = new ChartWidget(model);
  chart->setMinimumSize(kLeastChart);
  chart->setAccessibleName(title);
  binders.Bind(model, *chart);
  column->addWidget(chart, 1);
  row.addLayout(column, stretch);
}

/// A label in its place of the table.
struct Figure {
  platform::Label* label;
  int row, column;
  const char* name;
};

void AddFigure(QGridLayout& table, const Figure& figure, Binders& binders) {
  auto* widget = new LabelWidget;
  widget->setFont(StrongFont());
  widget->setAlignment(kToTheRight);
  widget->setContentsMargins(kMargin, 0, kMargin, 0);
  widget->setMinimumSize(64, 24);
  widget->set_blank_mark(QStringLiteral("–"));
  widget->setAccessibleDescription(QString::fromUtf8(figure.name));
  binders.Bind(*figure.label, *widget);
  table.addWidget(widget, figure.row, figure.column);
}

/// The balances of the market, and below them those of the large trades.
QLayout* MakeBalances(charts::Hot& hot, Binders& binders) {
  auto* table = new QGridLayout;
  table->setHorizontalSpacing(kGap);
  table->setVerticalSpacing(3);
  int column = 1;
  for (const char* heading : {"Comprador", "Vendedor", "% Saldo comprador", "Diferencia"}) {
    QLabel* label = QuietLabel(QString::fromUtf8(heading), SmallFont(), nullptr);
    label->setContentsMargins(0, 0, kMargin, 0);
    table->setColumnStretch(column, 1);
    table->addWidget(label, 0, column++, kToTheRight);
  }
  table->addWidget(QuietLabel(QStringLiteral("Saldo"), SmallFont(), nullptr), 1, 0);
  table->addWidget(QuietLabel(QStringLiteral("T1"), SmallFont(), nullptr), 2, 0);
  const Figure figures[] = {
      {&hot.LSC, 1, 1, "Comprador"},
      {&hot.LSV, 1, 2, "Vendedor"},
      {&hot.Label6, 1, 3, "% Saldo comprador"},
      {&hot.Label10, 1, 4, "Diferencia"},
      {&hot.LSCT1, 2, 1, "Comprador T1"},
      {&hot.LSVT1, 2, 2, "Vendedor T1"},
      {&hot.Label8, 2, 3, "% Saldo comprador T1"},
  };
  for (const Figure& figure : figures) AddFigure(*table, figure, binders);
  return table;
}

QWidget* MakeOverview(charts::Hot& hot, GridWidget& grid, Binders& binders) {
  auto* all = new QWidget;
  auto* column = new QVBoxLayout(all);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  auto* upper = new QVBoxLayout;
  upper->setContentsMargins(kMargin, kGap, kMargin, 0);
  upper->setSpacing(kGap);
  auto* charts = new QHBoxLayout;
  charts->setSpacing(kMargin);
  AddChart(*charts, 3, QStringLiteral("Índices"), hot.Gr1, binders);
  AddChart(*charts, 2, QStringLiteral("% Saldo comprador"), hot.Gr2, binders);
  upper->addLayout(charts, 1);
  upper->addLayout(MakeBalances(hot, binders));
  column->addLayout(upper, 4);
  grid.setMinimumHeight(kLeastGrid);
  column->addWidget(&grid, 1);
  return all;
}

}  // namespace

Look MakeHotLook(charts::Hot& hot, FrameClock& clock) {
  const auto surround = [&hot](GridWidget& grid, Binders& binders) {
    return MakeOverview(hot, grid, binders);
  };
  Look look = MakeBoardLook(
      hot, clock,
      {.empty_text = QStringLiteral("Elija un valor con Instrumento: aquí sale con sus datos"),
       .first_key = Qt::CTRL | Qt::Key_I,
       .surround = surround});
  look.widget->setMinimumSize(420, 320);
  return look;
}

}  // namespace qt

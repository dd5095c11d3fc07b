#include "qt/look/main_look.h"

#include <algorithm>

#include <QApplication>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "qt/look/binders.h"
#include "qt/look/desk_area.h"
#include "qt/look/icons.h"
#include "qt/look/small_widgets.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"
#include "qt/look/ticker_widget.h"
#include "qt/look/tool_bar_look.h"

namespace qt {
namespace {

constexpr QSize kFirstSize{1280, 800}, kLeastSize{800, 500};

void AddItems(QMenu& menu, const std::vector<platform::MenuItem>& items, QObject* context) {
  for (const platform::MenuItem& item : items) {
    if (item.caption.empty()) {
      menu.addSeparator();
    } else if (!item.items.empty()) {
      AddItems(*menu.addMenu(Text(item.caption)), item.items, context);
    } else {
      QAction* action = menu.addAction(Text(item.caption));
      action->setShortcut(QKeySequence(Text(item.key), QKeySequence::PortableText));
      QObject::connect(action, &QAction::triggered, context, [&item] {
        if (item.action) item.action();
      });
    }
  }
}

QWidget* MakeTape(shell::MDI& mdi, Binders& binders, QWidget* parent) {
  auto* band = new Band(Qt::BottomEdge, tone::kGround, parent);
  auto* row = new QVBoxLayout(band);
  row->setContentsMargins(0, 2, 0, 3);
  auto* ticker = new TickerWidget(mdi.Tickctl1, band);
  ticker->setAccessibleName(QStringLiteral("Cinta del mercado"));
  row->addWidget(ticker);
  binders.Bind(mdi.Tickctl1, *ticker);
  binders.BindPanel(mdi.Picture1, *band);
  return band;
}

LabelWidget* MakeTimeLabel(platform::Label& label, const char* widest, Binders& binders,
                           QWidget* parent) {
  auto* widget = new LabelWidget(parent);
  widget->setFont(StrongFont());
  widget->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  widget->setMinimumWidth(QFontMetrics(widget->font()).horizontalAdvance(QLatin1String(widest)) +
                          6);
  binders.Bind(label, *widget, Binders::Colors::theme);
  return widget;
}

QWidget* MakeStatusTicker(shell::MDI& mdi, Binders& binders, QWidget* parent) {
  auto* panel = new QWidget(parent);
  auto* inside = new QVBoxLayout(panel);
  inside->setContentsMargins(0, 0, 0, 0);
  auto* ticker = new TickerWidget(mdi.Tickctl2, panel);
  ticker->setAccessibleName(QStringLiteral("Estado de la sesión"));
  inside->addWidget(ticker);
  binders.Bind(mdi.Tickctl2, *ticker);
  binders.BindPanel(mdi.Picture3, *panel);
  return panel;
}

QPushButton* MakeStripButton(platform::Button& button, platform::Icon icon, Binders& binders,
                             QWidget* parent) {
  auto* widget = new QPushButton(IconFor(icon), {}, parent);
  widget->setIconSize({18, 18});
  widget->setAutoDefault(false);
  binders.Bind(button, *widget);
  return widget;
}

QWidget* MakeStrip(shell::MDI& mdi, Binders& binders, QWidget* parent) {
  auto* strip = new Band(Qt::TopEdge, tone::kWindow, parent);
  auto* light = new PictureWidget(strip);
  auto* count = new LabelWidget(strip);
  count->setContentsMargins(9, 0, 9, 0);
  count->setMinimumHeight(24);
  binders.Bind(mdi.Picture2, *light);
  binders.Bind(mdi.Label2, *count);
  auto* board = MakeStripButton(mdi.Command3, platform::Icon::board, binders, strip);
  auto* alarms = MakeStripButton(mdi.Command1, platform::Icon::alarms, binders, strip);
  auto* refresh_on = new QCheckBox(strip);
  auto* tape_on = new QCheckBox(strip);
  binders.Bind(mdi.Check1, *refresh_on);
  binders.Bind(mdi.Check2, *tape_on);

  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(8, 5, 12, 4);
  row->setSpacing(10);
  row->addWidget(light);
  row->addWidget(count, 0, Qt::AlignVCenter);
  row->addWidget(board);
  row->addWidget(alarms);
  row->addWidget(MakeStatusTicker(mdi, binders, strip), 1);
  row->addWidget(refresh_on);
  row->addWidget(tape_on);
  row->addSpacing(4);
  row->addWidget(MakeTimeLabel(mdi.LT, "00:00:00", binders, strip));
  row->addWidget(MakeTimeLabel(mdi.LF, "00-00-2000", binders, strip));
  return strip;
}

/// F6 goes round from the inner windows to each of the `panes`, and back.
void JoinPaneKey(QMainWindow& window, QMdiArea& area, const QList<QWidget*>& panes,
                 QObject* context) {
  auto* key = new QShortcut(Qt::Key_F6, &window);
  QObject::connect(key, &QShortcut::activated, context, [&area, panes] {
    const auto holds_focus = [](const QWidget* pane) {
      return pane->isAncestorOf(QApplication::focusWidget());
    };
    const auto here = std::find_if(panes.begin(), panes.end(), holds_focus);
    const auto next = here == panes.end() ? panes.begin() : here + 1;
    if (next != panes.end()) {
      if (auto* first = (*next)->findChild<QAbstractButton*>()) {
        return first->setFocus(Qt::ShortcutFocusReason);
      }
    }
    QMdiSubWindow* inner = area.activeSubWindow();
    if (inner && inner->widget()) inner->widget()->setFocus(Qt::ShortcutFocusReason);
  });
}

}  // namespace

Look MakeMainLook(shell::MDI& mdi, FrameClock& clock) {
  auto* window = new QMainWindow;
  window->resize(kFirstSize.boundedTo(window->screen()->availableSize()));
  window->setMinimumSize(kLeastSize);
  auto binders = std::make_shared<Binders>(*window, clock);
  for (const platform::MenuItem& top : mdi.menu) {
    AddItems(*window->menuBar()->addMenu(Text(top.caption)), top.items, binders->context());
  }
  auto* middle = new QWidget;
  auto* column = new QVBoxLayout(middle);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* area = new DeskArea(middle);
  auto* tools = MakeToolBar(mdi.ActiveBar1, *binders, middle);
  column->addWidget(tools);
  column->addWidget(MakeTape(mdi, *binders, middle));
  column->addWidget(area, 1);
  auto* strip = MakeStrip(mdi, *binders, middle);
  column->addWidget(strip);
  window->setCentralWidget(middle);
  JoinPaneKey(*window, *area, {strip, tools}, binders->context());
  return {.widget = window,
          .place = Place::main,
          .area = area,
          .widget_of = [b = binders.get()](platform::Control& c) { return b->WidgetOf(c); },
          .bond = binders};
}

}  // namespace qt

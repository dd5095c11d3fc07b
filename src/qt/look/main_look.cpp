#include "qt/look/main_look.h"

#include <algorithm>

#include <QApplication>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QVBoxLayout>

#include "qt/look/binders.h"
#include "qt/look/desk_area.h"
#include "qt/look/small_widgets.h"
#include "qt/look/strip_look.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"
#include "qt/look/ticker_widget.h"
#include "qt/look/tool_bar_look.h"
#include "qt/ports/window_frame.h"

namespace qt {
namespace {

constexpr QSize kFirstSize{1280, 800}, kLeastSize{700, 400};

void AddItems(QMenu& menu, const std::vector<platform::MenuItem>& items, QObject* context) {
  for (const platform::MenuItem& item : items) {
    if (item.caption.empty()) {
      menu.addSeparator();
    } else if (!item.items.empty()) {
      AddItems(*menu.addMenu(Text(item.caption)), item.items, context);
    } else {
      QAction* action = menu.addAction(Text(item.caption));
      action->setShortcut(QKeySequence(Text(item.key), QKeySequence::PortableText));
      // Help is asked for from any window.
      if (action->shortcut() == QKeySequence(QKeySequence::HelpContents)) {
        action->setShortcutContext(Qt::ApplicationShortcut);
      }
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

void AddKeys(QMainWindow& window, const std::vector<platform::MenuItem>& keys, QObject* context) {
  for (const platform::MenuItem& command : keys) {
    auto* key = new QShortcut(QKeySequence(Text(command.key), QKeySequence::PortableText), &window);
    QObject::connect(key, &QShortcut::activated, context, [&command] {
      if (command.action) command.action();
    });
  }
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
  const QSize room = RoomOnScreen(*window);
  window->resize(kFirstSize.boundedTo(room));
  window->setMinimumSize(kLeastSize.boundedTo(room));
  auto binders = std::make_shared<Binders>(*window, clock);
  for (const platform::MenuItem& top : mdi.menu) {
    AddItems(*window->menuBar()->addMenu(Text(top.caption)), top.items, binders->context());
  }
  AddKeys(*window, mdi.keys, binders->context());
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

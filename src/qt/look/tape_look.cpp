#include "qt/look/tape_look.h"

#include "qt/look/binders.h"
#include "qt/look/grid_widget.h"
#include "qt/look/text.h"

namespace qt {

Look MakeTapeLook(views::Form2& window, FrameClock& clock) {
  auto* tape = new QWidget;
  tape->setMinimumSize(240, 160);
  auto* list = new GridWidget(window.List1, tape);
  list->ReadAsTape(QStringLiteral("Sin negociaciones todavía"));
  list->Fill(views::Form2::kInstrumento);
  list->setAccessibleName(Text(window.caption()));
  auto binders = std::make_shared<Binders>(*tape, clock);
  binders->PlaceByModels();
  binders->Bind(window.List1, *list);
  tape->setFocusProxy(list);
  return {.widget = tape,
          .place = Place::child,
          .widget_of = [b = binders.get()](platform::Control& c) { return b->WidgetOf(c); },
          .bond = binders};
}

}  // namespace qt

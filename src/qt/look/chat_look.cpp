#include <QSplitter>
#include <QVBoxLayout>

#include "qt/look/form_parts.h"
#include "qt/look/list_widget.h"
#include "qt/look/portfolio_parts.h"
#include "qt/look/service_looks.h"
#include "qt/look/text.h"
#include "qt/look/text_log_widget.h"

namespace qt {
namespace {

constexpr int kMargin = 10, kGap = 6, kLeastPeople = 96, kUsualPeople = 150, kUsualTalk = 450;
constexpr QSize kLeast(320, 220);

/// Half of the window: a view below its name, which is also its name for those who can't see it.
QWidget* Half(const QString& name, QWidget* view) {
  auto* half = new QWidget;
  auto* column = new QVBoxLayout(half);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  QLabel* label = QuietLabel(name, SmallFont(), half);
  label->setBuddy(view);
  column->addWidget(label);
  column->addWidget(view, 1);
  view->setAccessibleName(name);
  return half;
}

QSplitter* MakeHalves(TextLogWidget* talk, ListWidget* people) {
  talk->setPlaceholderText(QStringLiteral("Aquí aparece lo que se dice en el canal."));
  talk->setMinimumWidth(kLeast.width() / 2);
  people->set_empty_text(QStringLiteral("Nadie"));
  people->setFont(TextFont());
  people->setMinimumWidth(kLeastPeople);
  auto* halves = new QSplitter;
  halves->setChildrenCollapsible(false);
  halves->addWidget(Half(QStringLiteral("Conversación"), talk));
  halves->addWidget(Half(QStringLiteral("Personas"), people));
  halves->setStretchFactor(0, 1);
  halves->setSizes({kUsualTalk, kUsualPeople});
  return halves;
}

QLineEdit* MakeInput(platform::TextBox& box, QWidget* parent, Binders& binders) {
  auto* input = new QLineEdit(parent);
  input->setMinimumHeight(kFieldHeight);
  input->setTextMargins(6, 0, 6, 0);
  if (box.enabled()) input->setPlaceholderText(QStringLiteral("Escriba y pulse Intro"));
  binders.Bind(box, *input);
  return input;
}

}  // namespace

Look MakeChatLook(services::Irc& window, FrameClock& clock) {
  auto* chat = new QWidget;
  chat->setMinimumSize(kLeast);
  auto binders = std::make_shared<Binders>(*chat, clock);
  auto* talk = new TextLogWidget(window.T);
  auto* people = new ListWidget(window.L);
  auto* note = QuietLabel({}, TextFont(), chat);
  note->setWordWrap(true);
  auto* input = MakeInput(window.C, chat, *binders);
  auto* column = new QVBoxLayout(chat);
  column->setContentsMargins(kMargin, kGap, kMargin, kMargin);
  column->setSpacing(kGap);
  column->addWidget(MakeHalves(talk, people), 1);
  column->addWidget(note);
  auto* line = new QHBoxLayout;
  auto* label = LabelFor(window.C, u'M', chat);
  label->setBuddy(input);
  line->addWidget(label);
  line->addWidget(input, 1);
  column->addLayout(line);

  binders->Bind(window.T, *talk);
  binders->Bind(window.L, *people);
  binders->Follow(window.Estado, *note, [&window, note] {
    note->setText(OneLine(Text(window.Estado.caption())));
    note->setVisible(!window.Estado.caption().empty());
  });
  QWidget::setTabOrder(input, talk);
  QWidget::setTabOrder(talk, people);
  // Without a server there is nothing to write.
  chat->setFocusProxy(window.C.enabled() ? static_cast<QWidget*>(input) : talk);
  return {.widget = chat,
          .place = Place::child,
          .widget_of = [b = binders.get()](platform::Control& c) { return b->WidgetOf(c); },
          .bond = binders};
}

}  // namespace qt

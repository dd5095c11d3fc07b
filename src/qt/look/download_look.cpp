#include "qt/look/form_parts.h"
#include "qt/look/list_widget.h"
#include "qt/look/metastock_looks.h"
#include "qt/look/portfolio_parts.h"
#include "qt/look/text.h"

namespace qt {
namespace {

using metastock::Form1;

constexpr int kBarHeight = 26;
constexpr QSize kLeastList(320, 120);

bool Finished(const platform::ProgressBar& bar) {
  return bar.max() > 0 && bar.value() == bar.max();
}

QString Progress(const platform::ProgressBar& bar) {
  const QString done = QStringLiteral("%1 de %2 empresas").arg(bar.value()).arg(bar.max());
  return Finished(bar) ? done + QStringLiteral(": terminado") : done;
}

QString WhyEmpty(const platform::ProgressBar& bar) {
  return bar.max() == 0
             ? QStringLiteral("Elija antes los directorios: Meta Stock, Configurar.")
             : QStringLiteral("Aquí aparece cada empresa cuando se ha recuperado su histórico.");
}

/// The request that was sent last, quietly once no other follows.
void TellRequest(const Form1& window, QLabel& note) {
  const QString sent = OneLine(Text(window.Label2.caption())).trimmed();
  const bool quiet = sent.isEmpty() || Finished(window.Avance);
  ShowNote(note, sent.isEmpty() ? QStringLiteral("No se ha pedido nada todavía.") : sent,
           quiet ? tone::kMuted : tone::kText);
}

}  // namespace

Look MakeDownloadLook(Form1& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* column = AddBody(*dialog);
  column->setSpacing(10);
  auto* heading = QuietLabel({}, TextFont(), dialog);
  column->addWidget(heading);
  auto* list = new ListWidget(window.List1, dialog);
  list->setFont(TextFont());
  list->setMinimumSize(kLeastList);
  list->set_follows_end(true);
  heading->setBuddy(list);
  column->addWidget(list, 1);
  auto* bar = new QProgressBar(dialog);
  bar->setFixedHeight(kBarHeight);
  bar->setAccessibleName(QStringLiteral("Empresas recuperadas"));
  column->addWidget(bar);
  auto* request = QuietLabel({}, TextFont(), dialog);
  column->addWidget(request);

  binders->Follow(window.Label1, *heading, [&window, heading, list] {
    heading->setText(WithMnemonic(window.Label1.caption(), u'E'));
    list->setAccessibleName(Text(window.Label1.caption()).trimmed());
  });
  binders->Bind(window.List1, *list);
  binders->Follow(window.Label2, *request, [&window, request] { TellRequest(window, *request); });
  binders->Bind(window.Avance, *bar, [&window, bar, list, request] {
    TellRequest(window, *request);
    bar->setFormat(Progress(window.Avance));
    list->set_empty_text(WhyEmpty(window.Avance));
  });
  list->setFocus();
  return LookOf(dialog, binders);
}

}  // namespace qt

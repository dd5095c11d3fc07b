#include <QVBoxLayout>

#include "qt/look/form_parts.h"
#include "qt/look/portfolio_looks.h"
#include "qt/look/portfolio_parts.h"
#include "qt/look/small_widgets.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

/// A line is the name in its full length, and the agency directly behind it.
QStringList NameAndAgency(const QString& line) {
  constexpr qsizetype kName = 25;
  return {line.left(kName), line.mid(kName)};
}

void TellHint(const portfolios::Cartera& window, QLabel& hint) {
  if (!window.Text1.text().empty() && !window.NombreEntero()) {
    ShowNote(hint,
             QStringLiteral("En el selector sólo se verán los nombres de hasta 23 letras y sin dos "
                            "espacios seguidos."),
             tone::kAlert);
  } else if (window.SinGuardar()) {
    ShowNote(hint,
             QStringLiteral("El disco no admite la última cartera: se guardará con la próxima."),
             tone::kAlert);
  } else {
    ShowNote(hint,
             QStringLiteral("Hacen falta los tres datos y una comisión por operación mayor que 0 "
                            "(decimales con punto)."),
             tone::kMuted);
  }
}

QLineEdit* AddForm(QVBoxLayout& column, portfolios::Cartera& window, QDialog* dialog,
                   Binders& binders) {
  auto* form = new QGridLayout;
  form->setHorizontalSpacing(14);
  form->setVerticalSpacing(8);
  SetFieldWidth(*form, 248, 270);
  column.addLayout(form);
  const auto add = [&](int row, platform::TextBox& box, QChar letter) {
    return AddField(*form, row, LabelFor(box, letter, dialog), box, binders);
  };
  auto* name = add(0, window.Text1, u'N');
  add(1, window.Text2, u'B');
  add(2, window.Text3, u'u');
  add(3, window.Text4, u'O');
  add(4, window.Text5, u'M');
  auto* hint = AddNote(*form, 5, 3, dialog);
  // The name is emptied by what adds a portfolio.
  QObject::connect(name, &QLineEdit::textChanged, binders.context(),
                   [&window, hint] { TellHint(window, *hint); });
  TellHint(window, *hint);
  return name;
}

}  // namespace

Look MakePortfolioLook(portfolios::Cartera& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  const auto [all, both, left] = AddHalves(*dialog, 16);
  auto* name = AddForm(*left, window, dialog, *binders);
  auto* adding = new QHBoxLayout;
  adding->addStretch();
  AddButton(*adding, window.Command1, *binders)->setDefault(true);
  left->addLayout(adding);
  left->addStretch();

  auto* list = AddList(*both, window.List1,
                       {.letter = u'f',
                        .headings = {QStringLiteral("Nombre"), QStringLiteral("Agencia")},
                        .split = NameAndAgency,
                        .alignments = {Qt::AlignLeft, Qt::AlignLeft}},
                       dialog, *binders);
  list->setMinimumWidth(240);
  list->set_empty_text(QStringLiteral("Todavía no hay carteras."));

  auto* buttons = new QHBoxLayout;
  AddButton(*buttons, window.Command2, *binders);
  buttons->addStretch();
  AddButton(*buttons, window.Command3, *binders);
  all->addLayout(buttons);
  name->setFocus();
  return LookOf(dialog, binders);
}

}  // namespace qt

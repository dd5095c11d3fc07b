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
  return {line.left(kName).trimmed(), line.mid(kName).trimmed()};
}

/// Whether the strip's selector, which ends at the first of two blanks, shows all of a name.
bool ReadsWhole(std::string_view typed) {
  const auto record = base::FixedText<25>::FromUtf8(typed);
  const std::string_view name = record.bytes();
  const std::size_t end = name.find_last_not_of(' ') + 1;
  return end > 0 && name.find("  ") == end;
}

void TellHint(const portfolios::Cartera& window, QLabel& hint) {
  const std::string& name = window.Text1.text();
  if (!name.empty() && !ReadsWhole(name)) {
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
    auto* label = QuietLabel(WithMnemonic(box.label(), letter), TextFont(), dialog);
    return AddField(*form, row, label, box, binders);
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
  auto* all = AddBody(*dialog);
  auto* middle = new QHBoxLayout;
  middle->setSpacing(24);
  all->addLayout(middle, 1);

  auto* left = new QVBoxLayout;
  left->setSpacing(16);
  middle->addLayout(left);
  auto* name = AddForm(*left, window, dialog, *binders);
  auto* adding = new QHBoxLayout;
  adding->addStretch();
  AddButton(*adding, window.Command1, *binders)->setDefault(true);
  left->addLayout(adding);
  left->addStretch();

  auto* list = AddList(*middle, window.List1,
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

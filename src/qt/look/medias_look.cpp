#include <QLineEdit>
#include <QVBoxLayout>

#include "qt/look/chart_looks.h"
#include "qt/look/form_parts.h"

namespace qt {
namespace {

void AddCombo(QGridLayout& form, int row, QChar letter, platform::ComboBox& box, QDialog* dialog,
              Binders& binders) {
  auto* label = LabelFor(box, letter, dialog);
  auto* combo = new QComboBox(dialog);
  combo->setMinimumHeight(kFieldHeight);
  binders.Bind(box, *combo);
  combo->lineEdit()->setReadOnly(true);
  label->setBuddy(combo);
  form.addWidget(label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
  form.addWidget(combo, row, 1);
}

}  // namespace

Look MakeAverageLook(charts::Medias& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* column = new QVBoxLayout(dialog);
  column->setContentsMargins(24, 24, 24, 20);
  column->setSpacing(18);
  column->setSizeConstraint(QLayout::SetFixedSize);

  auto* form = new QGridLayout;
  form->setHorizontalSpacing(14);
  form->setVerticalSpacing(12);
  form->setColumnMinimumWidth(1, 200);
  column->addLayout(form);
  auto* periods = AddField(*form, 0, LabelFor(window.Text1, u'P', dialog), window.Text1, *binders);
  periods->setPlaceholderText(QStringLiteral("20"));
  AddCombo(*form, 1, u'M', window.Combo1, dialog, *binders);
  AddCombo(*form, 2, u'p', window.Combo2, dialog, *binders);
  column->addWidget(QuietLabel(QStringLiteral("Se traza siempre la media simple de los cierres."),
                               SmallFont(), dialog));

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  AddButton(*buttons, window.Command1, *binders)->setDefault(true);
  AddButton(*buttons, window.Command2, *binders);
  column->addLayout(buttons);
  periods->setFocus();
  Look look = LookOf(dialog, binders);
  look.modal = true;
  return look;
}

}  // namespace qt

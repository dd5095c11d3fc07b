#include <QAbstractItemModel>
#include <QVBoxLayout>

#include "qt/look/form_parts.h"
#include "qt/look/portfolio_looks.h"
#include "qt/look/portfolio_parts.h"
#include "qt/look/small_widgets.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

using portfolios::Detalle;

/// "C 100<tab>CODE   12.50": the code has its full length, and the price stands directly behind it.
QStringList OperationCells(const QString& line) {
  constexpr qsizetype kSide = 2, kCode = 7;
  const qsizetype tab = line.indexOf(u'\t');
  if (tab < kSide) return {line};
  const QString rest = line.mid(tab + 1);
  return {line.left(kSide), line.mid(kSide, tab - kSide), rest.left(kCode), rest.mid(kCode)};
}

/// What an empty list asks for.
void TellWhatToChoose(const Detalle& window, ListWidget& positions, ListWidget& operations) {
  QString wanted = QStringLiteral("Elija una cartera de la lista.");
  if (window.Combo1.items().empty()) {
    wanted = HowToAddPortfolios();
  } else if (Lists(window.Combo1, window.Combo1.text())) {
    wanted = QStringLiteral("Esta cartera no tiene títulos.");
  }
  positions.set_empty_text(wanted);
  operations.set_empty_text(window.List2.items().empty()
                                ? QString()
                                : QStringLiteral("Elija un valor para ver sus operaciones."));
}

QComboBox* AddHead(QVBoxLayout& all, Detalle& window, QDialog* dialog, Binders& binders) {
  auto* head = new QHBoxLayout;
  head->setSpacing(14);
  all.addLayout(head);
  auto* portfolio = LabelFor(window.Combo1, u'C', dialog);
  auto* combo = MakePortfolioBox(window.Combo1, dialog, binders);
  portfolio->setBuddy(combo);
  head->addWidget(portfolio);
  head->addWidget(combo, 2);
  head->addStretch(1);
  auto* value = new QGridLayout;
  value->setHorizontalSpacing(14);
  head->addLayout(value);
  auto* field = AddField(*value, 0, LabelFor(window.Text1, u'V', dialog), window.Text1, binders);
  field->setAlignment(Qt::AlignRight);
  field->setFixedWidth(120);
  return combo;
}

}  // namespace

Look MakeDetailLook(Detalle& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* all = AddBody(*dialog);
  auto* combo = AddHead(*all, window, dialog, *binders);
  auto* lists = new QHBoxLayout;
  lists->setSpacing(24);
  all->addLayout(lists, 1);
  auto* positions = AddList(*lists, window.List2, PositionColumns(u'T'), dialog, *binders);
  auto* operations =
      AddList(*lists, window.List1,
              {.letter = u'L',
               .headings = {QStringLiteral("C/V"), QStringLiteral("Títulos"),
                            QStringLiteral("Código"), QStringLiteral("Precio")},
               .split = OperationCells,
               .alignments = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignLeft, Qt::AlignRight}},
              dialog, *binders);
  operations->setMinimumWidth(310);
  QWidget::setTabOrder(combo, positions);
  QWidget::setTabOrder(positions, operations);
  QWidget::setTabOrder(operations, binders->WidgetOf(window.Text1));

  // The models know when these widgets have told them.
  const auto tell = [&window, positions, operations] {
    TellWhatToChoose(window, *positions, *operations);
  };
  QObject* context = binders->context();
  QObject::connect(combo, &QComboBox::currentTextChanged, context, tell, Qt::QueuedConnection);
  for (const QAbstractItemModel* model : {combo->model(), positions->model()}) {
    QObject::connect(model, &QAbstractItemModel::rowsInserted, context, tell, Qt::QueuedConnection);
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, context, tell, Qt::QueuedConnection);
  }
  tell();
  combo->setFocus();
  return LookOf(dialog, binders);
}

}  // namespace qt

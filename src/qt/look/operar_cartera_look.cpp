#include <QAbstractItemModel>
#include <QPainter>
#include <QVBoxLayout>

#include "qt/look/form_parts.h"
#include "qt/look/portfolio_looks.h"
#include "qt/look/portfolio_parts.h"
#include "qt/look/small_widgets.h"
#include "qt/look/style_parts.h"
#include "qt/look/suggest.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

using portfolios::Operar_Cartera;

/// One half of a switch between buying and selling.
class SideButton : public QRadioButton {
 public:
  explicit SideButton(const QColor& tint) : tint_(tint) {
    setMinimumHeight(36);
    setFont(StrongFont());
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  }

 protected:
  [[nodiscard]] bool hitButton(const QPoint& at) const override { return rect().contains(at); }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QColor idle = Mix(tone::kWindow, tone::kRaised, underMouse() ? 1 : 0.5);
    DrawRounded(painter, rect(), isChecked() ? Mix(tone::kWindow, tint_, 0.3) : idle,
                isChecked() ? tint_ : tone::kLine);
    if (hasFocus()) {
      DrawRounded(painter, rect().adjusted(3, 3, -3, -3), Qt::transparent, tone::kText, 3);
    }
    painter.setFont(font());
    painter.setPen(isChecked() ? QColor(Qt::white) : tone::kMuted);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
  }

 private:
  QColor tint_;
};

/// Hears when another widget gets another tool tip.
class TipWatch : public QObject {
 public:
  TipWatch(QWidget& widget, std::function<void()> tell, QObject* parent)
      : QObject(parent), tell_(std::move(tell)) {
    widget.installEventFilter(this);
    tell_();
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::ToolTipChange) tell_();
    return false;
  }

 private:
  std::function<void()> tell_;
};

struct Order {
  QComboBox* portfolio;
  QLabel* chosen;
  QLineEdit* shares;
};

void TellPortfolio(const Operar_Cartera& window, const Order& order, ListWidget& positions) {
  const bool listed = Lists(window.Combo1, window.Text1.text());
  if (window.Combo1.items().empty()) {
    ShowNote(*order.chosen, HowToAddPortfolios(), tone::kAlert);
  } else if (!listed) {
    ShowNote(*order.chosen, QStringLiteral("Ninguna cartera se llama así. Elija una de la lista."),
             tone::kAlert);
  } else if (window.SinGuardar()) {
    ShowNote(*order.chosen,
             QStringLiteral("El disco no admite la última operación: se guardará con la próxima."),
             tone::kAlert);
  } else {
    ShowNote(*order.chosen, QStringLiteral("Se anota en ") + Text(base::Trim(window.Text1.text())),
             tone::kMuted);
  }
  // What isn't a portfolio doesn't look like one.
  QPalette ink = order.portfolio->palette();
  ink.setColor(QPalette::Text, listed ? tone::kText : tone::kMuted);
  order.portfolio->setPalette(ink);
  positions.set_empty_text(listed ? QStringLiteral("Esta cartera no tiene títulos.") : QString());
}

void TellName(const Operar_Cartera& window, QLabel& note) {
  const std::string& name = window.Text3.tool_tip();
  if (name == Operar_Cartera::kSinNombre) {
    ShowNote(note, QStringLiteral("Escriba el código o parte del nombre"), tone::kMuted);
  } else {
    ShowNote(note, Text(base::Trim(name)), tone::kAccent);
  }
}

void AddSides(QGridLayout& form, int row, Operar_Cartera& window, QDialog* dialog,
              Binders& binders) {
  auto* sides = new QWidget(dialog);
  auto* line = new QHBoxLayout(sides);
  line->setContentsMargins(0, 0, 0, 2);
  line->setSpacing(8);
  const auto add = [&](platform::OptionButton& option, const QColor& tint) {
    auto* side = new SideButton(tint);
    line->addWidget(side);
    binders.Bind(option, *side);
  };
  add(window.Option1, tone::kGood);
  add(window.Option2, tone::kBad);
  form.addWidget(sides, row, 1);
}

Order AddOrder(QGridLayout& form, Operar_Cartera& window, QDialog* dialog, Binders& binders) {
  auto* portfolio = LabelFor(window.Combo1, u's', dialog);
  auto* combo = MakePortfolioBox(window.Combo1, dialog, binders);
  portfolio->setBuddy(combo);
  form.addWidget(portfolio, 0, 0, Qt::AlignRight | Qt::AlignVCenter);
  form.addWidget(combo, 0, 1);
  auto* chosen = AddNote(form, 1, 2, dialog);
  AddSides(form, 2, window, dialog, binders);

  const auto add = [&](int row, platform::TextBox& box, QChar letter, const QString& hint) {
    auto* field = AddField(form, row, LabelFor(box, letter, dialog), box, binders);
    field->setPlaceholderText(hint);
    return field;
  };
  auto* shares = add(3, window.Text2, u'T', QStringLiteral("Número de acciones"));
  auto* code = add(4, window.Text3, u'E', QStringLiteral("Código"));
  Suggest([&window](std::string_view text) { return window.Sugerencias(text); }, window.Text3,
          *code, binders);
  auto* name = AddNote(form, 5, 1, dialog);
  new TipWatch(
      *code, [&window, name] { TellName(window, *name); }, binders.context());
  add(6, window.Text4, u'P', QStringLiteral("Euros por acción, como 12.50"));
  return {combo, chosen, shares};
}

void AddCash(QVBoxLayout& all, Operar_Cartera& window, QDialog* dialog, Binders& binders) {
  auto* band = new Band(Qt::TopEdge, tone::kWindow, dialog);
  all.addWidget(band);
  auto* line = new QHBoxLayout(band);
  line->setContentsMargins(0, 12, 0, 0);
  line->setSpacing(8);
  const auto add = [&](platform::TextBox& box, QChar letter) {
    auto* form = new QGridLayout;
    line->addLayout(form);
    auto* name = LabelFor(box, letter, dialog);
    name->setFont(SmallFont());
    auto* field = AddField(*form, 0, name, box, binders);
    field->setPlaceholderText(QStringLiteral("0.00"));
    field->setFixedWidth(80);
  };
  add(window.Text5, u'I');
  add(window.Text6, u'R');
  AddButton(*line, window.Command2, binders)->setAutoDefault(false);
  line->addStretch(1);
  const auto show = [&](const QString& name, platform::Label& label) {
    line->addWidget(QuietLabel(name, SmallFont(), dialog));
    auto* figure = new LabelWidget;
    figure->setFont(SmallFont());
    line->addWidget(figure);
    binders.Bind(label, *figure, Binders::Colors::theme);
  };
  show(QStringLiteral("Gasto"), window.Label8);
  show(QStringLiteral("Gain At"), window.Label12);
  show(QStringLiteral("Cargo"), window.Label14);
  show(QStringLiteral("Saldo"), window.Label6);
}

}  // namespace

Look MakeOperationLook(Operar_Cartera& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  const auto [all, both, left] = AddHalves(*dialog, 10);
  auto* form = new QGridLayout;
  form->setHorizontalSpacing(14);
  form->setVerticalSpacing(6);
  SetFieldWidth(*form, 270, 300);
  left->addLayout(form);
  const Order order = AddOrder(*form, window, dialog, *binders);
  auto* recording = new QHBoxLayout;
  left->addLayout(recording);
  recording->addStretch();
  auto* record = AddButton(*recording, window.Command1, *binders);
  record->setDefault(true);
  left->addStretch();

  auto* list = AddList(*both, window.List2, PositionColumns(u'u'), dialog, *binders);
  const auto tell = [&window, order, list] { TellPortfolio(window, order, *list); };
  binders->Follow(window.Text1, *order.chosen, tell);
  QObject::connect(order.portfolio->model(), &QAbstractItemModel::rowsInserted, binders->context(),
                   tell);
  QObject::connect(record, &QPushButton::clicked, binders->context(), tell);
  AddCash(*all, window, dialog, *binders);
  order.shares->setFocus();
  return LookOf(dialog, binders);
}

}  // namespace qt

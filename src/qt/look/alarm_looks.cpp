#include "qt/look/alarm_looks.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "qt/look/form_parts.h"
#include "qt/look/icons.h"
#include "qt/look/list_widget.h"
#include "qt/look/small_widgets.h"
#include "qt/look/suggest.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kMargin = 20;

/// A bell and a text on red.
class Siren : public QWidget {
 public:
  explicit Siren(QWidget* parent) : QWidget(parent) { setFixedHeight(38); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), Mix(tone::kWindow, tone::kBad, 0.45));
    painter.fillRect(0, 0, width(), 3, tone::kBad);
    DrawIcon(painter, QRectF(kMargin, 8, 24, 24), platform::Icon::alarms);
    painter.setFont(StrongFont());
    painter.setPen(Qt::white);
    const QRect room = rect().adjusted(kMargin + 34, 3, -kMargin, 0);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, accessibleName());
  }
};

class FiredAlarms : public QDialog {
 public:
  explicit FiredAlarms(alarms::ListAlarm& window) : window_(&window), siren_(new Siren(this)) {
    siren_->setAccessibleName(
        QStringLiteral("Ha saltado una alarma: doble clic aquí para callarla"));
  }

  [[nodiscard]] Siren* siren() const { return siren_; }
  void ShowWhetherItBeeps() { siren_->setVisible(window_ && window_->Timer1.enabled()); }
  void Drop() { window_ = nullptr; }

 protected:
  void showEvent(QShowEvent* event) override {
    ShowWhetherItBeeps();
    QDialog::showEvent(event);
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    if (!window_ || event->button() != Qt::LeftButton) return;
    window_->Form_DblClick();
    ShowWhetherItBeeps();
  }

 private:
  alarms::ListAlarm* window_;
  Siren* siren_;
};

}  // namespace

Look MakeAlarmLook(alarms::APrecio& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* column = new QVBoxLayout(dialog);
  column->setContentsMargins(24, 24, 24, 20);
  column->setSpacing(20);
  column->setSizeConstraint(QLayout::SetFixedSize);

  auto* form = new QGridLayout;
  form->setHorizontalSpacing(14);
  form->setVerticalSpacing(12);
  form->setColumnMinimumWidth(1, 280);
  column->addLayout(form);
  auto* code = AddField(*form, 0, LabelFor(window.Text1, u'o', dialog), window.Text1, *binders);
  auto* kind = QuietLabel({}, TextFont(), dialog);
  Suggest([&window](std::string_view text) { return window.Sugerencias(text); }, window.Text1,
          *code, *binders);
  auto* value = AddField(*form, 1, kind, window.Text2, *binders);
  binders->Follow(window.Label5, *kind, [&window, kind, value] {
    const bool price = window.Option2.enabled();
    value->setPlaceholderText(price ? QStringLiteral("12.50") : QStringLiteral("100000"));
    const std::string& caption = window.Label5.caption();
    kind->setText(WithMnemonic(caption, caption.empty() ? QChar() : QChar(caption.front())));
  });
  AddField(*form, 2, LabelFor(window.Text3, u'r', dialog), window.Text3, *binders);
  auto* options = new QHBoxLayout;
  options->setSpacing(20);
  for (platform::OptionButton* option : {&window.Option1, &window.Option2}) {
    auto* widget = new QRadioButton;
    binders->Bind(*option, *widget);
    options->addWidget(widget);
  }
  options->addStretch();
  form->addLayout(options, 3, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  AddButton(*buttons, window.Command1, *binders)->setDefault(true);
  AddButton(*buttons, window.Command2, *binders);
  column->addLayout(buttons);
  code->setFocus();
  return LookOf(dialog, binders);
}

Look MakeDefinedAlarmsLook(alarms::FormAlarm& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* column = new QVBoxLayout(dialog);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(16);
  auto* list = new ListWidget(window.List1, dialog);
  list->set_empty_text(QStringLiteral("No hay alarmas definidas."));
  binders->Bind(window.List1, *list);
  column->addWidget(list, 1);
  auto* buttons = new QHBoxLayout;
  AddButton(*buttons, window.Command7, *binders);
  AddButton(*buttons, window.Command9, *binders);
  buttons->addStretch();
  AddButton(*buttons, window.Command10, *binders)->setDefault(true);
  column->addLayout(buttons);
  list->setFocus();
  return LookOf(dialog, binders);
}

Look MakeFiredAlarmsLook(alarms::ListAlarm& window, FrameClock& clock) {
  auto* dialog = new FiredAlarms(window);
  auto binders = std::make_shared<Binders>(*dialog, clock);
  QObject::connect(binders->context(), &QObject::destroyed, dialog, [dialog] { dialog->Drop(); });
  auto* column = new QVBoxLayout(dialog);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(dialog->siren());
  auto* inside = new QVBoxLayout;
  inside->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  inside->setSpacing(16);
  column->addLayout(inside);
  auto* list = new ListWidget(window.List1, dialog);
  list->set_empty_text(QStringLiteral("No ha saltado ninguna alarma."));
  list->set_follows_end(true);
  binders->Bind(window.List1, *list);
  // An alarm that fires adds its line.
  QObject::connect(list->model(), &QAbstractItemModel::rowsInserted, dialog,
                   [dialog] { dialog->ShowWhetherItBeeps(); });
  inside->addWidget(list, 1);
  auto* buttons = new QHBoxLayout;
  AddButton(*buttons, window.Command1, *binders);
  AddButton(*buttons, window.Command3, *binders);
  buttons->addStretch();
  AddButton(*buttons, window.Command5, *binders)->setDefault(true);
  inside->addLayout(buttons);
  list->setFocus();
  return LookOf(dialog, binders);
}

}  // namespace qt

#include "qt/look/strip_look.h"

#include <algorithm>

#include <QComboBox>
#include <QHBoxLayout>
#include <QPainter>

#include "qt/look/icons.h"
#include "qt/look/small_widgets.h"
#include "qt/look/style_parts.h"
#include "qt/look/theme.h"
#include "qt/look/ticker_widget.h"

namespace qt {
namespace {

constexpr int kHeight = 28, kGap = 10, kNearGap = 5, kGroupGap = 20, kLineGap = 4;
constexpr int kStatusRoom = 260;  // in which the status ticker can be read
constexpr int kLeastCombo = 110, kComboLetters = 20;

/// Two groups of controls, beside one another or the second below the first.
class Strip : public Band {
 public:
  explicit Strip(QWidget* parent)
      : Band(Qt::TopEdge, tone::kWindow, parent),
        groups_(new QBoxLayout(QBoxLayout::TopToBottom, this)),
        first_(new QHBoxLayout),
        second_(new QHBoxLayout) {
    groups_->setContentsMargins(8, 5, 12, 4);
    groups_->addLayout(first_);
    groups_->addLayout(second_, 1);
    for (QHBoxLayout* group : {first_, second_}) group->setSpacing(kGap);
  }

  [[nodiscard]] QHBoxLayout& first() const { return *first_; }
  [[nodiscard]] QHBoxLayout& second() const { return *second_; }
  [[nodiscard]] QSize minimumSizeHint() const override {
    return {0, Band::minimumSizeHint().height()};
  }

 protected:
  void resizeEvent(QResizeEvent*) override {
    const int needed =
        first_->sizeHint().width() + second_->minimumSize().width() + kStatusRoom + kGroupGap;
    const bool one_line = width() >= needed;
    groups_->setDirection(one_line ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    groups_->setSpacing(one_line ? kGroupGap : kLineGap);
  }

 private:
  QBoxLayout* groups_;
  QHBoxLayout *first_, *second_;
};

/// A figure of the program's, in the colours of its model. Before there is one it stays quiet.
class ValueBox : public QLineEdit {
 public:
  ValueBox(const char* widest, QWidget* parent) : QLineEdit(parent) {
    setFont(StrongFont());
    setAlignment(Qt::AlignRight);
    setTextMargins(3, 0, 3, 0);
    FitTo(QLatin1String(widest), 0);
    // A figure that isn't there whole would be read as another one.
    connect(this, &QLineEdit::textChanged, this,
            [this, least = width()](const QString& text) { FitTo(text, least); });
  }

 private:
  void FitTo(const QString& text, int least) {
    setFixedSize(std::max(QFontMetrics(font()).horizontalAdvance(text) + 20, least), kHeight);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    if (!text().isEmpty()) return QLineEdit::paintEvent(event);
    QPainter painter(this);
    DrawRounded(painter, rect(), tone::kGround, hasFocus() ? tone::kAccent : tone::kLine);
    painter.setFont(font());
    painter.setPen(tone::kLine);
    painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("–"));
  }
};

QPushButton* MakeButton(platform::Button& button, platform::Icon icon, Binders& binders,
                        QWidget* parent) {
  auto* widget = new QPushButton(IconFor(icon), {}, parent);
  widget->setIconSize({18, 18});
  widget->setAutoDefault(false);
  widget->setFixedHeight(kHeight);
  binders.Bind(button, *widget);
  return widget;
}

QCheckBox* MakeCheck(platform::CheckBox& box, Binders& binders, QWidget* parent) {
  auto* widget = new QCheckBox(parent);
  binders.Bind(box, *widget);
  return widget;
}

/// As wide as its `widest` text, so that nothing beside it moves.
LabelWidget* MakeLabel(platform::Label& label, const char* widest, Binders::Colors colors,
                       Binders& binders, QWidget* parent) {
  auto* widget = new LabelWidget(parent);
  if (colors == Binders::Colors::theme) {
    widget->setFont(StrongFont());
    widget->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  } else {
    widget->setContentsMargins(9, 0, 9, 0);
  }
  const QMargins margins = widget->contentsMargins();
  widget->setMinimumSize(QFontMetrics(widget->font()).horizontalAdvance(QLatin1String(widest)) +
                             margins.left() + margins.right() + 6,
                         24);
  binders.Bind(label, *widget, colors);
  return widget;
}

QWidget* MakeStatusTicker(shell::MDI& mdi, Binders& binders, QWidget* parent) {
  auto* panel = new QWidget(parent);
  auto* inside = new QVBoxLayout(panel);
  inside->setContentsMargins(0, 0, 0, 0);
  auto* ticker = new TickerWidget(mdi.Tickctl2, panel);
  ticker->setAccessibleName(QStringLiteral("Estado de la sesión"));
  inside->addWidget(ticker);
  binders.Bind(mdi.Tickctl2, *ticker);
  binders.BindPanel(mdi.Picture3, *panel);
  return panel;
}

QComboBox* MakeSelector(platform::ComboBox& box, Binders& binders, QWidget* parent) {
  auto* widget = new QComboBox(parent);
  widget->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  widget->setMinimumContentsLength(kComboLetters);
  widget->setMinimumWidth(kLeastCombo);
  widget->setFixedHeight(kHeight);
  binders.Bind(box, *widget);
  return widget;
}

void AddPortfolio(shell::MDI& mdi, Binders& binders, QWidget& strip, QHBoxLayout& row) {
  row.addWidget(MakeButton(mdi.Command2, platform::Icon::operate, binders, &strip));
  auto* holdings = new LabelWidget(&strip);
  holdings->setContentsMargins(4, 0, 4, 0);
  holdings->set_pressable(true);
  binders.Bind(mdi.Label1, *holdings, Binders::Colors::theme);
  row.addWidget(holdings);
  row.addWidget(MakeSelector(mdi.Combo1, binders, &strip));
  auto* boxes = new QHBoxLayout;
  boxes->setSpacing(kNearGap);
  const auto add = [&](platform::TextBox& model, const char* widest) {
    auto* box = new ValueBox(widest, &strip);
    binders.Bind(model, *box, Binders::Colors::model);
    boxes->addWidget(box);
  };
  add(mdi.Text1, "999,999,999");
  add(mdi.Text2, "-999.99%");
  add(mdi.Text3, "-99,999,999");
  row.addLayout(boxes);
}

}  // namespace

QWidget* MakeStrip(shell::MDI& mdi, Binders& binders, QWidget* parent) {
  using Colors = Binders::Colors;
  auto* strip = new Strip(parent);
  auto* light = new PictureWidget(strip);
  binders.Bind(mdi.Picture2, *light);
  QHBoxLayout& first = strip->first();
  first.addWidget(light);
  first.addWidget(MakeLabel(mdi.Label2, "Instrumentos: 5000", Colors::model, binders, strip), 0,
                  Qt::AlignVCenter);
  AddPortfolio(mdi, binders, *strip, first);
  first.addStretch();

  QHBoxLayout& second = strip->second();
  second.addWidget(MakeButton(mdi.Command3, platform::Icon::board, binders, strip));
  second.addWidget(MakeButton(mdi.Command1, platform::Icon::alarms, binders, strip));
  second.addWidget(MakeStatusTicker(mdi, binders, strip), 1);
  second.addWidget(MakeCheck(mdi.Check1, binders, strip));
  second.addWidget(MakeCheck(mdi.Check2, binders, strip));
  second.addSpacing(4);
  second.addWidget(MakeLabel(mdi.LT, "00:00:00", Colors::theme, binders, strip));
  second.addWidget(MakeLabel(mdi.LF, "00-00-2000", Colors::theme, binders, strip));
  return strip;
}

}  // namespace qt

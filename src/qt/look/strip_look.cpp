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

constexpr int kHeight = 28, kGap = 10, kTightGap = 3, kNearGap = 5, kGroupGap = 20, kLineGap = 4;
constexpr int kStatusRoom = 260;  // in which the status ticker can be read
constexpr int kLeastCombo = 86, kComboLetters = 20;

/// A figure of the program's, in the colours of its model, with room for all of it where there is
/// any. Before there is one it stays quiet.
class ValueBox : public QLineEdit {
 public:
  ValueBox(const char* usual, QWidget* parent) : QLineEdit(parent) {
    setFont(StrongFont());
    setAlignment(Qt::AlignRight);
    setTextMargins(3, 0, 3, 0);
    setFixedSize(least_ = WidthOf(QLatin1String(usual)), kHeight);
  }

  [[nodiscard]] int wanted() const { return std::max(WidthOf(text()), least_); }
  /// Takes the room it wants but `over`, or as much of that as it can do without. What is left.
  int GiveWay(int over) {
    const int given = std::clamp(over, 0, wanted() - least_);
    setFixedWidth(wanted() - given);
    return over - given;
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    const bool blank = text().isEmpty();
    if (!blank && width() >= wanted()) return QLineEdit::paintEvent(event);
    QPainter painter(this);
    const QColor ground = blank ? tone::kGround : palette().color(QPalette::Base);
    DrawRounded(painter, rect(), ground, hasFocus() ? tone::kAccent : tone::kLine);
    painter.setFont(font());
    painter.setPen(blank ? tone::kLine : palette().color(QPalette::Text));
    // A figure that isn't there whole would be read as another one.
    painter.drawText(rect(), Qt::AlignCenter,
                     blank ? QStringLiteral("–")
                           : fontMetrics().elidedText(text(), Qt::ElideRight, width() - kEdges));
  }

 private:
  static constexpr int kEdges = 20;

  [[nodiscard]] int WidthOf(const QString& text) const {
    return QFontMetrics(font()).horizontalAdvance(text) + kEdges;
  }

  int least_ = 0;
};

/// Two groups of controls, beside one another or the second below the first. Where the first is
/// too wide for a line its gaps give way, then its figures.
class Strip : public Band {
 public:
  explicit Strip(QWidget* parent)
      : Band(Qt::TopEdge, tone::kWindow, parent),
        groups_(new QBoxLayout(QBoxLayout::TopToBottom, this)),
        first_(new QHBoxLayout),
        second_(new QHBoxLayout),
        figures_(new QHBoxLayout) {
    groups_->setContentsMargins(8, 5, 8, 4);
    groups_->addLayout(first_);
    groups_->addLayout(second_, 1);
    second_->setSpacing(kGap);
  }

  [[nodiscard]] QHBoxLayout& first() const { return *first_; }
  [[nodiscard]] QHBoxLayout& second() const { return *second_; }
  [[nodiscard]] QHBoxLayout& figures() const { return *figures_; }
  [[nodiscard]] QSize minimumSizeHint() const override {
    return {0, Band::minimumSizeHint().height()};
  }
  ValueBox* AddFigure(const char* usual) {
    auto* box = new ValueBox(usual, this);
    figures_->addWidget(box);
    boxes_ << box;
    connect(box, &QLineEdit::textChanged, this, &Strip::Arrange);
    return box;
  }
  /// A part that isn't always there.
  void ArrangeAround(QWidget& part) { part.installEventFilter(this); }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) Arrange();
    return false;
  }
  void resizeEvent(QResizeEvent*) override { Arrange(); }

 private:
  void Arrange() {
    SetGaps(kGap, kNearGap);
    int growth = 0;
    for (const ValueBox* box : boxes_) growth += box->wanted() - box->minimumWidth();
    const int one_line = first_->sizeHint().width() + growth + kGroupGap +
                         second_->minimumSize().width() + kStatusRoom;
    groups_->setDirection(width() >= one_line ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    groups_->setSpacing(width() >= one_line ? kGroupGap : kLineGap);
    const QMargins margins = groups_->contentsMargins();
    const int room = width() - margins.left() - margins.right() - growth;
    if (first_->minimumSize().width() > room) SetGaps(kTightGap, kTightGap);
    int over = first_->minimumSize().width() - room;
    for (ValueBox* box : boxes_) over = box->GiveWay(over);
  }

  void SetGaps(int between, int near) {
    figures_->setSpacing(near);
    first_->setSpacing(between);  // which has a layout measured anew
  }

  QBoxLayout* groups_;
  QHBoxLayout *first_, *second_, *figures_;
  QList<ValueBox*> boxes_;
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

QLayout* MakeWindowButtons(shell::MDI& mdi, Binders& binders, QWidget* parent) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kNearGap);
  const auto add = [&](platform::Button& button, platform::Icon icon) {
    row->addWidget(MakeButton(button, icon, binders, parent));
  };
  add(mdi.Command3, platform::Icon::board);
  add(mdi.Command4, platform::Icon::indices);
  add(mdi.Command5, platform::Icon::futures);
  add(mdi.Command6, platform::Icon::currencies);
  add(mdi.Command1, platform::Icon::alarms);
  return row;
}

void AddPortfolio(shell::MDI& mdi, Binders& binders, Strip& strip) {
  QHBoxLayout& row = strip.first();
  row.addWidget(MakeButton(mdi.Command2, platform::Icon::operate, binders, &strip));
  auto* holdings = new LabelWidget(&strip);
  holdings->setContentsMargins(4, 0, 4, 0);
  holdings->set_pressable(true);
  binders.Bind(mdi.Label1, *holdings, Binders::Colors::theme);
  row.addWidget(holdings);
  row.addWidget(MakeSelector(mdi.Combo1, binders, &strip));
  const auto add = [&](platform::TextBox& model, const char* usual) {
    binders.Bind(model, *strip.AddFigure(usual), Binders::Colors::model);
  };
  add(mdi.Text1, "999,999,999");
  add(mdi.Text2, "-999.99%");
  add(mdi.Text3, "-99,999,999");
  row.addLayout(&strip.figures());
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
  AddPortfolio(mdi, binders, *strip);
  first.addStretch();

  QHBoxLayout& second = strip->second();
  second.addLayout(MakeWindowButtons(mdi, binders, strip));
  second.addWidget(MakeStatusTicker(mdi, binders, strip), 1);
  auto* refresh = MakeCheck(mdi.Check1, binders, strip);
  strip->ArrangeAround(*refresh);
  second.addWidget(refresh);
  second.addWidget(MakeCheck(mdi.Check2, binders, strip));
  second.addSpacing(4);
  second.addWidget(MakeLabel(mdi.LT, "00:00:00", Colors::theme, binders, strip));
  second.addWidget(MakeLabel(mdi.LF, "00-00-2000", Colors::theme, binders, strip));
  return strip;
}

}  // namespace qt

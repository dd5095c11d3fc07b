#include "qt/look/binders.h"

#include <algorithm>
#include <utility>

#include <QAbstractItemView>
#include <QKeyEvent>

#include "qt/look/chart_widget.h"
#include "qt/look/combo_bond.h"
#include "qt/look/dir_box.h"
#include "qt/look/grid_widget.h"
#include "qt/look/list_widget.h"
#include "qt/look/small_widgets.h"
#include "qt/look/text.h"
#include "qt/look/text_log_widget.h"
#include "qt/look/theme.h"
#include "qt/look/ticker_widget.h"
#include "qt/ports/twips.h"

namespace qt {
namespace {

constexpr int kNoLimit = 32767;

void ShowName(QWidget& widget, const QString& name) {
  if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

/// What names a control to those who can't see it. `caption` is its own or that of its label.
QString NameOf(const QString& caption, const platform::Control& control) {
  const QString name = caption.trimmed();
  return name.isEmpty() ? Text(control.tool_tip()).trimmed() : name;
}

void ShowCommon(const platform::Control& control, QWidget& widget) {
  if (widget.isHidden() == control.visible()) widget.setVisible(control.visible());
  if (widget.isEnabledTo(widget.parentWidget()) != control.enabled()) {
    widget.setEnabled(control.enabled());
  }
  const QString tip = ToolTipText(control.tool_tip());
  if (widget.toolTip() != tip) widget.setToolTip(tip);
}

/// For a control without a caption. A name that its window has given it stays.
std::function<void()> CommonShower(const platform::Control& control, QWidget& widget) {
  return [&control, &widget, named = !widget.accessibleName().isEmpty()] {
    ShowCommon(control, widget);
    if (!named) ShowName(widget, NameOf({}, control));
  };
}

void ShowColors(QLineEdit& widget, const QColor& ink, const QColor& ground) {
  QPalette colors = widget.palette();
  if (colors.color(QPalette::Text) == ink && colors.color(QPalette::Base) == ground) return;
  colors.setColor(QPalette::Text, ink);
  colors.setColor(QPalette::Base, ground);
  widget.setPalette(colors);
}

/// Gives Enter to a box that wants it, before the dialog takes it for its default button.
class EnterWatch : public QObject {
 public:
  EnterWatch(platform::TextBox& box, QLineEdit& widget, QObject* parent)
      : QObject(parent), box_(box) {
    widget.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !box_.on_enter) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    box_.on_enter();
    return true;
  }

 private:
  platform::TextBox& box_;
};

}  // namespace

class Binders::Bond : public Refreshable, public platform::Watcher {
 public:
  Bond(Binders& binders, platform::Control& model, std::function<void()> show)
      : binders_(binders), model_(model), show_(std::move(show)) {
    Refresh();
    model_.set_watcher(this);
  }
  ~Bond() override { model_.set_watcher(nullptr); }

  void Touched(platform::Model&) override { binders_.clock_.Want(*this); }
  void Refresh() override {
    model_.Clean();
    show_();
  }
  [[nodiscard]] bool Ready() const override {
    return binders_.host_.isVisible() && !binders_.host_.window()->isMinimized();
  }

 private:
  Binders& binders_;
  platform::Control& model_;
  std::function<void()> show_;
};

Binders::Binders(QWidget& host, FrameClock& clock) : host_(host), clock_(clock) {}

Binders::~Binders() {
  for (const auto& drop : drops_) drop();
}

void Binders::Follow(platform::Control& model, QWidget& widget, std::function<void()> show) {
  widgets_[&model] = &widget;
  if (placed_) {
    show = [&model, &widget, show = std::move(show)] {
      widget.setGeometry(ToPixels(model.rect()));
      show();
    };
  }
  bonds_.push_back(std::make_unique<Bond>(*this, model, std::move(show)));
}

void Binders::Bind(platform::Label& label, LabelWidget& widget, Colors colors) {
  Follow(label, widget, [&label, &widget, colors] {
    const QString text = Text(label.caption());
    widget.ShowText(text);
    if (colors == Colors::model) {
      widget.set_colors(ColorOf(label.fore()), ColorOf(label.back()));
    }
    ShowCommon(label, widget);
    ShowName(widget, NameOf(text, label));
  });
  widget.on_click = [&label] { label.Click(); };
  widget.on_double_click = [&label] { label.DoubleClick(); };
  drops_.push_back([&widget] { widget.on_click = widget.on_double_click = nullptr; });
}

void Binders::Bind(platform::TextBox& box, QLineEdit& widget, Colors colors) {
  Follow(box, widget, [&box, &widget, colors] {
    widget.setMaxLength(box.max_length() > 0 ? box.max_length() : kNoLimit);
    widget.setEchoMode(box.password() ? QLineEdit::Password : QLineEdit::Normal);
    widget.setReadOnly(box.locked());
    if (colors == Colors::model) ShowColors(widget, ColorOf(box.fore()), ColorOf(box.back()));
    const QString text = Text(box.text());
    if (widget.text() != text) {
      widget.setText(text);
      if (box.locked()) widget.home(false);
    }
    ShowCommon(box, widget);
    ShowName(widget, NameOf(SpokenCaption(box.label()), box));
  });
  QObject::connect(&widget, &QLineEdit::textEdited, &context_,
                   [&box](const QString& text) { box.set_text(text.toStdString()); });
  new EnterWatch(box, widget, &context_);
}

void Binders::Bind(platform::ComboBox& box, QComboBox& widget) {
  auto* bond = new ComboBond(box, widget, &context_);
  Follow(box, widget, [&box, &widget, bond] {
    bond->Show();
    ShowCommon(box, widget);
    // The keyboard is in its line, or in its list.
    const QString name = NameOf(SpokenCaption(box.label()), box);
    for (QWidget* part : {static_cast<QWidget*>(&widget), static_cast<QWidget*>(widget.lineEdit()),
                          static_cast<QWidget*>(widget.view())}) {
      ShowName(*part, name);
    }
  });
}

void Binders::Bind(platform::Button& button, QPushButton& widget) {
  Follow(button, widget, [&button, &widget] {
    const QString caption = Text(button.caption());
    if (widget.text() != caption) widget.setText(caption);
    ShowCommon(button, widget);
    ShowName(widget, NameOf(SpokenCaption(button.caption()), button));
  });
  QObject::connect(&widget, &QPushButton::clicked, &context_, [&button] { button.Click(); });
}

void Binders::Bind(platform::CheckBox& box, QCheckBox& widget) {
  Follow(box, widget, [&box, &widget] {
    const QString caption = Text(box.caption());
    if (widget.text() != caption) widget.setText(caption);
    if (widget.isChecked() != (box.value() == 1)) widget.setChecked(box.value() == 1);
    ShowCommon(box, widget);
    ShowName(widget, NameOf(SpokenCaption(box.caption()), box));
  });
  QObject::connect(&widget, &QCheckBox::clicked, &context_,
                   [&box](bool checked) { box.set_value(checked ? 1 : 0); });
}

void Binders::Bind(platform::OptionButton& option, QRadioButton& widget) {
  Follow(option, widget, [&option, &widget] {
    const QString caption = Text(option.caption());
    if (widget.text() != caption) widget.setText(caption);
    if (widget.isChecked() != option.value()) widget.setChecked(option.value());
    ShowCommon(option, widget);
    ShowName(widget, NameOf(SpokenCaption(option.caption()), option));
  });
  QObject::connect(&widget, &QRadioButton::clicked, &context_,
                   [&option] { option.set_value(true); });
}

void Binders::Bind(platform::ListBox& list, ListWidget& widget) {
  Follow(list, widget, [&widget, show_common = CommonShower(list, widget)] {
    show_common();
    widget.Refresh();
  });
  drops_.push_back([&widget] { widget.Drop(); });
}

void Binders::Bind(platform::PictureBox& picture, PictureWidget& widget) {
  Follow(picture, widget, [&picture, &widget, show_common = CommonShower(picture, widget)] {
    widget.set_picture(picture.picture());
    show_common();
  });
  QObject::connect(&widget, &QAbstractButton::clicked, &context_, [&picture] { picture.Click(); });
}

void Binders::Bind(platform::DriveBox& box, QComboBox& widget) {
  for (const std::string& drive : box.drives()) widget.addItem(Text(drive));
  Follow(box, widget, [&box, &widget] {
    widget.setCurrentText(Text(box.drive()));
    ShowCommon(box, widget);
    ShowName(widget, NameOf(SpokenCaption(box.label()), box));
  });
  QObject::connect(&widget, &QComboBox::textActivated, &context_,
                   [&box, &widget](const QString& drive) {
                     (void)box.set_drive(drive.toStdString());
                     widget.setCurrentText(Text(box.drive()));
                   });
}

void Binders::Bind(platform::DirBox& box, DirBoxWidget& widget) {
  Follow(box, widget, [&box, &widget] {
    widget.Refresh();
    ShowCommon(box, widget);
    ShowName(widget.field(), NameOf(SpokenCaption(box.label()), box));
  });
  drops_.push_back([&widget] { widget.Drop(); });
}

void Binders::Bind(platform::ProgressBar& bar, QProgressBar& widget, std::function<void()> shown) {
  Follow(bar, widget,
         [&bar, &widget, show_common = CommonShower(bar, widget), shown = std::move(shown)] {
           widget.setRange(0, std::max(bar.max(), 1));  // 0 to 0 would run for ever
           bar.max() > 0 ? widget.setValue(bar.value()) : widget.reset();
           show_common();
           shown();
         });
}

void Binders::Bind(platform::TextLog& log, TextLogWidget& widget) {
  Follow(log, widget, [&widget, show_common = CommonShower(log, widget)] {
    show_common();
    widget.Refresh();
  });
  drops_.push_back([&widget] { widget.Drop(); });
}

void Binders::Bind(platform::Ticker& ticker, TickerWidget& widget) {
  Follow(ticker, widget, [&widget, show_common = CommonShower(ticker, widget)] {
    show_common();
    widget.Refresh();
  });
  drops_.push_back([&widget] { widget.Drop(); });
}

void Binders::Bind(platform::Grid& grid, GridWidget& widget) {
  Follow(grid, widget, [&grid, &widget] {
    if (widget.isHidden() == grid.visible()) widget.setVisible(grid.visible());
    widget.Refresh();
  });
  drops_.push_back([&widget] { widget.Drop(); });
}

void Binders::Bind(charts::Chart& chart, ChartWidget& widget) {
  Follow(chart, widget, [&widget] { widget.Refresh(); });
  drops_.push_back([&widget] { widget.Drop(); });
}

void Binders::BindPanel(platform::Control& panel, QWidget& widget) {
  Follow(panel, widget, CommonShower(panel, widget));
}

QWidget* Binders::WidgetOf(const platform::Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second;
}

}  // namespace qt

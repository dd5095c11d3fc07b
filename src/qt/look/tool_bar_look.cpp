#include "qt/look/tool_bar_look.h"

#include <algorithm>

#include <QAbstractButton>
#include <QMenu>
#include <QPainter>

#include "qt/look/icons.h"
#include "qt/look/pictures.h"
#include "qt/look/small_widgets.h"
#include "qt/look/style_parts.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kHeight = 36, kMargin = 8, kGap = 2, kGroupGap = 5;
constexpr QSize kButton{32, 30}, kLine{1, 20};

/// Flat until the pointer or the keyboard is on it.
class ToolButton : public QAbstractButton {
 public:
  ToolButton(const QIcon& icon, std::string_view tip, QWidget* parent) : QAbstractButton(parent) {
    setIcon(icon);
    setFixedSize(kButton);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(Text(tip));
    setToolTip(ToolTipText(tip));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    if (hasFocus() || underMouse() || isDown()) {
      DrawRounded(painter, rect(), isDown() ? tone::kLine : tone::kRaised,
                  hasFocus() ? tone::kAccent : tone::kLine);
    }
    icon().paint(&painter, rect().adjusted(4, 4, -4, -4));
  }
};

QWidget* MakeSeparator(QWidget* parent) {
  auto* line = new QWidget(parent);
  line->setFixedSize(kLine);
  line->setAutoFillBackground(true);
  QPalette palette;
  palette.setColor(QPalette::Window, tone::kLine);
  line->setPalette(palette);
  return line;
}

/// The buttons one beside the other. Those for which there is no room stand in the menu of a last
/// one, which is only there for them.
class ToolRow : public Band {
 public:
  ToolRow(platform::ToolBar& bar, QObject* context, QWidget* parent)
      : Band(Qt::BottomEdge, tone::kWindow, parent), bar_(bar), context_(context) {
    setFixedHeight(bar.tools.empty() ? 0 : kHeight);
    for (const platform::Tool& tool : bar.tools) Add(tool);
    more_ = new ToolButton(MoreIcon(), "Más herramientas", this);
    connect(more_, &QAbstractButton::clicked, context_, [this] { ShowMenu(); });
    more_->hide();
  }

  [[nodiscard]] QSize sizeHint() const override {
    return {items_.empty() ? 0 : items_.back().end + kMargin, height()};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, height()}; }

 protected:
  void resizeEvent(QResizeEvent*) override {
    shown_ = CountFitting(width() - kMargin);
    const bool all = shown_ == items_.size();
    if (!all) shown_ = CountFitting(width() - kMargin - kGap - kButton.width());
    while (!all && shown_ > 0 && items_[shown_ - 1].tool->number == 0) --shown_;
    for (std::size_t i = 0; i < items_.size(); ++i) items_[i].widget->setVisible(i < shown_);
    more_->setVisible(!all);
    more_->move(shown_ == 0 ? kMargin : items_[shown_ - 1].end + kGap, kTop);
  }

 private:
  struct Item {
    const platform::Tool* tool;
    QWidget* widget;
    int end;  // of the room that it takes, in pixels from the left
  };

  void Add(const platform::Tool& tool) {
    const int left = items_.empty() ? kMargin : items_.back().end + kGap;
    if (tool.number == 0) {
      auto* line = MakeSeparator(this);
      line->move(left + kGroupGap, (kHeight - kLine.height()) / 2);
      items_.push_back({&tool, line, left + 2 * kGroupGap + kLine.width()});
      return;
    }
    auto* button = new ToolButton(IconFor(tool.icon), tool.tip, this);
    button->move(left, kTop);
    connect(button, &QAbstractButton::clicked, context_, [this, &tool] { bar_.Click(tool); });
    items_.push_back({&tool, button, left + kButton.width()});
  }

  [[nodiscard]] std::size_t CountFitting(int room) const {
    const auto past = std::ranges::upper_bound(items_, room, {}, &Item::end);
    return static_cast<std::size_t>(past - items_.begin());
  }

  void ShowMenu() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (std::size_t i = shown_; i < items_.size(); ++i) {
      const platform::Tool& tool = *items_[i].tool;
      if (tool.number == 0) {
        menu->addSeparator();  // which isn't shown at the head
        continue;
      }
      connect(menu->addAction(WithoutMnemonic(tool.tip)), &QAction::triggered, context_,
              [this, &tool] { bar_.Click(tool); });
    }
    menu->popup(more_->mapToGlobal(QPoint(0, more_->height())));
  }

  static constexpr int kTop = (kHeight - kButton.height()) / 2;

  platform::ToolBar& bar_;
  QObject* context_;
  QAbstractButton* more_;
  std::vector<Item> items_;
  std::size_t shown_ = 0;
};

}  // namespace

QWidget* MakeToolBar(platform::ToolBar& bar, Binders& binders, QWidget* parent) {
  auto* row = new ToolRow(bar, binders.context(), parent);
  row->setAccessibleName(QStringLiteral("Herramientas"));
  binders.BindPanel(bar, *row);
  return row;
}

}  // namespace qt

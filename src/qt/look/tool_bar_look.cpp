#include "qt/look/tool_bar_look.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QPainter>

#include "qt/look/icons.h"
#include "qt/look/small_widgets.h"
#include "qt/look/style_parts.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

/// Flat until the pointer or the keyboard is on it.
class ToolButton : public QAbstractButton {
 public:
  ToolButton(const platform::Tool& tool, QWidget* parent)
      : QAbstractButton(parent), icon_(tool.icon) {
    setFixedSize(34, 30);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(Text(tool.tip));
    setToolTip(ToolTipText(tool.tip));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    if (hasFocus() || underMouse() || isDown()) {
      DrawRounded(painter, rect(), isDown() ? tone::kLine : tone::kRaised,
                  hasFocus() ? tone::kAccent : tone::kLine);
    }
    DrawIcon(painter, QRectF(rect()).adjusted(5, 4, -5, -4), icon_);
  }

 private:
  platform::Icon icon_;
};

QWidget* MakeSeparator(QWidget* parent) {
  auto* line = new QWidget(parent);
  line->setFixedSize(1, 20);
  line->setAutoFillBackground(true);
  QPalette palette;
  palette.setColor(QPalette::Window, tone::kLine);
  line->setPalette(palette);
  return line;
}

}  // namespace

QWidget* MakeToolBar(platform::ToolBar& bar, Binders& binders, QWidget* parent) {
  auto* band = new Band(Qt::BottomEdge, tone::kWindow, parent);
  band->setAccessibleName(QStringLiteral("Herramientas"));
  binders.BindPanel(bar, *band);
  auto* row = new QHBoxLayout(band);
  row->setContentsMargins(8, 0, 8, 0);
  row->setSpacing(2);
  for (const platform::Tool& tool : bar.tools) {
    if (tool.number == 0) {
      row->addSpacing(5);
      row->addWidget(MakeSeparator(band));
      row->addSpacing(5);
      continue;
    }
    auto* button = new ToolButton(tool, band);
    QObject::connect(button, &QAbstractButton::clicked, binders.context(),
                     [&bar, &tool] { bar.Click(tool); });
    row->addWidget(button);
  }
  row->addStretch();
  band->setFixedHeight(bar.tools.empty() ? 0 : 36);
  return band;
}

}  // namespace qt

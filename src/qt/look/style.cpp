#include "qt/look/style.h"

#include <bit>

#include <QApplication>
#include <QStyleFactory>
#include <QWidget>

#include "qt/look/pictures.h"
#include "qt/look/style_parts.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kSignWidth = 30, kSignHeight = 24;  // at the end of the menu bar

}  // namespace

Style::Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("fusion"))) {}

// Tool tips bring the desktop's colours, each time these change.
void Style::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (widget->inherits("QTipLabel")) widget->setPalette(QApplication::palette());
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  const bool focus = option->state.testFlag(State_HasFocus);
  switch (element) {
    case PE_PanelButtonCommand:
      return DrawButtonPanel(*option, *painter);
    case PE_FrameDefaultButton:
      return;
    case PE_FrameLineEdit:
      return DrawRounded(*painter, option->rect, Qt::transparent,
                         focus ? tone::kAccent : tone::kLine);
    case PE_PanelLineEdit:
      return DrawField(*option, *painter, widget);
    case PE_IndicatorCheckBox:
      return DrawCheckMark(*option, *painter);
    case PE_IndicatorRadioButton:
      return DrawRadioMark(*option, *painter);
    case PE_FrameFocusRect:
      return DrawRounded(*painter, option->rect, Qt::transparent, tone::kAccent);
    case PE_Frame:  // of a list that drops down
      if (!widget || !widget->inherits("QComboBoxPrivateContainer")) break;
      painter->fillRect(option->rect, tone::kLine);
      return painter->fillRect(option->rect.adjusted(1, 1, -1, -1), tone::kRaised);
    case PE_PanelTipLabel:
      painter->fillRect(option->rect, tone::kRaised);
      [[fallthrough]];
    case PE_FrameMenu:
    case PE_FrameWindow:
      painter->setPen(tone::kLine);
      painter->setBrush(Qt::NoBrush);
      painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
      return;
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  switch (element) {
    case CE_PushButtonLabel:
      if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
          button && IsDefaultButton(*option)) {
        QStyleOptionButton inked(*button);
        inked.palette.setColor(QPalette::ButtonText, tone::kOnAccent);
        return QProxyStyle::drawControl(element, &inked, painter, widget);
      }
      break;
    case CE_PushButton:  // without Fusion's own focus mark: the ring is part of the panel
      if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
        proxy()->drawControl(CE_PushButtonBevel, button, painter, widget);
        proxy()->drawControl(CE_PushButtonLabel, button, painter, widget);
        return;
      }
      break;
    case CE_MenuItem:
      if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
          item && item->menuItemType != QStyleOptionMenuItem::SubMenu) {
        return DrawMenuItem(*item, *painter);
      }
      break;
    case CE_ProgressBar:
      if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option)) {
        return DrawProgressBar(*bar, *painter);
      }
      break;
    case CE_HeaderEmptyArea:
      painter->fillRect(option->rect, tone::kWindow);
      return painter->fillRect(option->rect.left(), option->rect.bottom(), option->rect.width(), 1,
                               tone::kLine);
    case CE_MenuBarEmptyArea:
      return painter->fillRect(option->rect, tone::kWindow);
    case CE_MenuBarItem:
      if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
        const bool lit = item->state.testFlag(State_Selected);
        painter->fillRect(item->rect, tone::kWindow);
        if (lit)
          DrawRounded(*painter, QRectF(item->rect).adjusted(1, 2, -1, -2), tone::kRaised,
                      tone::kLine);
        const int underline = proxy()->styleHint(SH_UnderlineShortcut, item, widget, nullptr)
                                  ? Qt::TextShowMnemonic
                                  : Qt::TextHideMnemonic;
        return proxy()->drawItemText(painter, item->rect, Qt::AlignCenter | underline,
                                     item->palette, true, item->text, QPalette::WindowText);
      }
      break;
    default:
      break;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const {
  if (control == CC_TitleBar) {
    if (const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option)) {
      return DrawTitleBar(*bar, *painter, widget);
    }
  }
  if (control == CC_MdiControls) return DrawMdiControls(*option, *painter, widget);
  if (control == CC_ScrollBar) {
    if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
      return DrawScrollBar(*bar, subControlRect(control, option, SC_ScrollBarSlider, widget),
                           *painter);
    }
  }
  if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      box && control == CC_ComboBox) {
    return DrawComboBox(*box, subControlRect(control, option, SC_ComboBoxArrow, widget), *painter);
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                            SubControl part, const QWidget* widget) const {
  if (control == CC_ComboBox && (part == SC_ComboBoxArrow || part == SC_ComboBoxEditField)) {
    QRect place = ComboBoxPart(option->rect, part);
    const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    // A field that can be typed into has its own margin.
    if (part == SC_ComboBoxEditField && box && !box->editable) place.setLeft(place.left() + 6);
    return visualRect(option->direction, option->rect, place);
  }
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control != CC_ScrollBar || !bar) {
    return QProxyStyle::subControlRect(control, option, part, widget);
  }
  // Scroll bars have no arrows: the slider has the whole length.
  const bool flat = bar->orientation == Qt::Horizontal;
  const QRect& all = bar->rect;
  const int room = flat ? all.width() : all.height();
  const auto range = static_cast<qint64>(bar->maximum) - bar->minimum;
  const auto page = static_cast<qint64>(bar->pageStep);
  const int length =
      range <= 0 ? room
                 : qBound(qMin(32, room), static_cast<int>(page * room / (range + page)), room);
  const int from = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                           room - length, bar->upsideDown);
  const auto slice = [&](int first, int size) {
    return visualRect(bar->direction, all,
                      flat ? QRect(all.left() + first, all.top(), size, all.height())
                           : QRect(all.left(), all.top() + first, all.width(), size));
  };
  switch (part) {
    case SC_ScrollBarSlider:
      return slice(from, length);
    case SC_ScrollBarGroove:
      return all;
    case SC_ScrollBarSubPage:
      return slice(0, from);
    case SC_ScrollBarAddPage:
      return slice(from + length, room - from - length);
    default:
      return {};
  }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                              const QWidget* widget) const {
  if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
      item && type == CT_MenuItem) {
    return MenuItemSize(*item);
  }
  if (const auto* signs = qstyleoption_cast<const QStyleOptionComplex*>(option);
      signs && type == CT_MdiControls) {
    return {kSignWidth * std::popcount(static_cast<unsigned>(signs->subControls)), kSignHeight};
  }
  if (type == CT_MenuBarItem && !size.isEmpty()) return size + QSize(20, 8);
  return QProxyStyle::sizeFromContents(type, option, size, widget);
}

void Style::DrawTitleBar(const QStyleOptionTitleBar& option, QPainter& painter,
                         const QWidget* widget) const {
  const bool active = option.titleBarState & Qt::WindowActive;
  painter.save();
  painter.fillRect(option.rect, active ? tone::kRaised : tone::kWindow);
  if (active)
    painter.fillRect(QRect(option.rect.topLeft(), QSize(option.rect.width(), 2)), tone::kAccent);
  const auto place = [&](SubControl part) {
    return proxy()->subControlRect(CC_TitleBar, &option, part, widget);
  };
  if (!option.icon.isNull()) {
    option.icon.paint(&painter, place(SC_TitleBarSysMenu).adjusted(2, 2, -2, -2));
  }
  painter.setPen(active ? tone::kText : tone::kMuted);
  const QRect text = place(SC_TitleBarLabel).adjusted(4, 0, -4, 0);
  painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(option.text, Qt::ElideRight, text.width()));
  painter.setRenderHint(QPainter::Antialiasing);
  const auto sign = [&](SubControl part, Qt::WindowFlags needed) {
    if (!(option.titleBarFlags & needed)) return;
    const QRect rect = place(part);
    if (!rect.isValid()) return;
    const bool hover = option.activeSubControls == part && option.state.testFlag(State_MouseOver);
    if (hover)
      DrawRounded(painter, rect, part == SC_TitleBarCloseButton ? tone::kBad : tone::kLine,
                  Qt::transparent);
    painter.setPen(QPen(active || hover ? tone::kText : tone::kMuted, 1.2));
    painter.setBrush(Qt::NoBrush);
    DrawTitleSign(painter, part, rect);
  };
  const bool minimized = option.titleBarState & Qt::WindowMinimized;
  const bool maximized = option.titleBarState & Qt::WindowMaximized;
  if (!minimized) sign(SC_TitleBarMinButton, Qt::WindowMinimizeButtonHint);
  if (!maximized) sign(SC_TitleBarMaxButton, Qt::WindowMaximizeButtonHint);
  if (minimized || maximized) sign(SC_TitleBarNormalButton, Qt::WindowMinMaxButtonsHint);
  sign(SC_TitleBarCloseButton, Qt::WindowSystemMenuHint);
  painter.restore();
}

void Style::DrawMdiControls(const QStyleOptionComplex& option, QPainter& painter,
                            const QWidget* widget) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const auto sign = [&](SubControl part, SubControl as) {
    if (!option.subControls.testFlag(part)) return;
    const QRect rect = proxy()->subControlRect(CC_MdiControls, &option, part, widget);
    if (option.activeSubControls == part) {
      DrawRounded(painter, rect, part == SC_MdiCloseButton ? tone::kBad : tone::kLine,
                  Qt::transparent);
    }
    painter.setPen(QPen(tone::kText, 1.2));
    painter.setBrush(Qt::NoBrush);
    DrawTitleSign(painter, as, rect);
  };
  sign(SC_MdiMinButton, SC_TitleBarMinButton);
  sign(SC_MdiNormalButton, SC_TitleBarNormalButton);
  sign(SC_MdiCloseButton, SC_TitleBarCloseButton);
  painter.restore();
}

QIcon Style::standardIcon(StandardPixmap icon, const QStyleOption* option,
                          const QWidget* widget) const {
  switch (icon) {
    case SP_MessageBoxInformation:
      return SignIcon(QLatin1Char('i'), tone::kBusy);
    case SP_MessageBoxQuestion:
      return SignIcon(QLatin1Char('?'), tone::kAccent);
    case SP_MessageBoxWarning:
    case SP_MessageBoxCritical:
      return SignIcon(QLatin1Char('!'), tone::kBad);
    case SP_ToolBarHorizontalExtensionButton:
      // Every menu bar asks for it, and Qt would look through the machine's icon themes.
      return MoreIcon();
    default:
      return QProxyStyle::standardIcon(icon, option, widget);
  }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option,
                       const QWidget* widget) const {
  switch (metric) {
    case PM_TitleBarHeight:
      return 30;
    case PM_MdiSubWindowFrameWidth:
      return 3;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return 17;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
      return 0;
    case PM_ToolTipLabelFrameWidth:
      return 6;
    case PM_ScrollBarExtent:
      return 13;
    case PM_MenuVMargin:
    case PM_MenuHMargin:
      return 4;
    case PM_MenuBarItemSpacing:
      return 2;
    case PM_MenuBarVMargin:
      return 3;
    case PM_MenuBarHMargin:
      return 6;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* result) const {
  switch (hint) {
    case SH_EtchDisabledText:
      return 0;
    case SH_LineEdit_PasswordCharacter:
      return '*';
    case SH_UnderlineShortcut:
      return 1;
    default:
      return QProxyStyle::styleHint(hint, option, widget, result);
  }
}

}  // namespace qt

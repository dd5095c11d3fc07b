#include "qt/look/style_parts.h"

#include <algorithm>

#include <QPainterPath>
#include <QWidget>

#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr int kMenuSide = 14, kMenuGap = 28, kMenuRow = 30, kSeparatorRow = 9;

void DrawTick(QPainter& painter, const QRectF& r, const QColor& ink) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QPainterPath tick({r.left() + r.width() * 0.25, r.top() + r.height() * 0.52});
  tick.lineTo(r.left() + r.width() * 0.43, r.top() + r.height() * 0.70);
  tick.lineTo(r.left() + r.width() * 0.76, r.top() + r.height() * 0.31);
  painter.drawPath(tick);
  painter.restore();
}

}  // namespace

void DrawRounded(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& line,
                 double radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(line);
  painter.setBrush(fill);
  painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.restore();
}

bool IsDefaultButton(const QStyleOption& option) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  return button && button->features.testFlag(QStyleOptionButton::DefaultButton) &&
         option.state.testFlag(QStyle::State_Enabled);
}

void DrawButtonPanel(const QStyleOption& option, QPainter& painter) {
  const bool focus = option.state.testFlag(QStyle::State_HasFocus);
  const bool down = option.state.testFlag(QStyle::State_Sunken);
  const bool hover = option.state.testFlag(QStyle::State_MouseOver) &&
                     option.state.testFlag(QStyle::State_Enabled);
  const bool main = IsDefaultButton(option), on = option.state.testFlag(QStyle::State_On);
  QColor fill = main ? tone::kAccent : tone::kRaised;
  if (on && !main) fill = Mix(tone::kWindow, tone::kAccent, 0.3);
  if (down)
    fill = fill.darker(125);
  else if (hover)
    fill = Mix(fill, Qt::white, main ? 0.18 : 0.08);
  const QColor line = focus ? (main ? QColor(Qt::white) : tone::kAccent)
                            : (main ? fill
                               : on ? Mix(tone::kLine, tone::kAccent, 0.6)
                                    : tone::kLine);
  DrawRounded(painter, option.rect, fill, line);
  if (focus)
    DrawRounded(painter, QRectF(option.rect).adjusted(1, 1, -1, -1), Qt::transparent, line);
}

void DrawField(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
  if (frame && frame->lineWidth == 0) return;
  const bool fixed = option.state.testFlag(QStyle::State_ReadOnly);
  const bool focus = option.state.testFlag(QStyle::State_HasFocus);
  QColor ground = fixed ? tone::kWindow : tone::kGround;
  if (widget && widget->testAttribute(Qt::WA_SetPalette)) {
    ground = option.palette.color(QPalette::Base);
  }
  const QColor line = fixed ? Mix(tone::kWindow, tone::kLine, 0.6) : tone::kLine;
  DrawRounded(painter, option.rect, ground, focus ? tone::kAccent : line);
}

void DrawComboBox(const QStyleOptionComboBox& option, const QRect& arrow, QPainter& painter) {
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const bool focus = option.state.testFlag(QStyle::State_HasFocus);
  const bool lit = enabled && (option.state & (QStyle::State_MouseOver | QStyle::State_On));
  DrawRounded(painter, option.rect, option.editable ? tone::kGround : tone::kRaised,
              focus ? tone::kAccent : tone::kLine);
  const QPointF c = QRectF(arrow).center();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ink = enabled ? (lit ? tone::kText : tone::kMuted) : tone::kLine;
  painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF({c + QPointF(-4, -2), c + QPointF(0, 2), c + QPointF(4, -2)}));
  painter.restore();
}

QRect ComboBoxPart(const QRect& all, QStyle::SubControl part) {
  constexpr int kArrow = 26, kEdge = 2;
  const QRect text = all.adjusted(kEdge, kEdge, -kArrow, -kEdge);
  if (part == QStyle::SC_ComboBoxEditField) return text;
  return QRect(text.right() + 1, all.top(), kArrow, all.height());
}

void DrawCheckMark(const QStyleOption& option, QPainter& painter) {
  const bool on = option.state.testFlag(QStyle::State_On);
  const bool focus = option.state.testFlag(QStyle::State_HasFocus);
  const bool hover = option.state.testFlag(QStyle::State_MouseOver);
  const QColor fill = on ? tone::kAccent : tone::kRaised;
  DrawRounded(painter, option.rect, fill,
              on ? fill : (focus || hover ? tone::kAccent : Mix(tone::kLine, tone::kMuted, 0.4)),
              3.5);
  if (on) DrawTick(painter, option.rect, tone::kOnAccent);
}

void DrawRadioMark(const QStyleOption& option, QPainter& painter) {
  const bool on = option.state.testFlag(QStyle::State_On);
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const bool lit = option.state & (QStyle::State_HasFocus | QStyle::State_MouseOver);
  const QColor ink = enabled ? tone::kAccent : tone::kLine;
  const QRectF disc(option.rect);
  DrawRounded(painter, disc, tone::kRaised,
              on || (lit && enabled) ? ink : Mix(tone::kLine, tone::kMuted, enabled ? 0.4 : 0),
              disc.width() / 2);
  if (!on) return;
  const double inset = disc.width() * 0.26;
  DrawRounded(painter, disc.adjusted(inset, inset, -inset, -inset), ink, ink, disc.width() / 2);
}

void DrawTitleSign(QPainter& painter, QStyle::SubControl control, const QRectF& rect) {
  const QPointF c = rect.center();
  constexpr double kHalf = 4.5;
  const QRectF box(c.x() - kHalf, c.y() - kHalf, 2 * kHalf, 2 * kHalf);
  switch (control) {
    case QStyle::SC_TitleBarMinButton:
      painter.drawLine(QPointF(box.left(), box.bottom() - 1),
                       QPointF(box.right(), box.bottom() - 1));
      break;
    case QStyle::SC_TitleBarMaxButton:
      painter.drawRect(box.adjusted(0, 0.5, 0, -0.5));
      break;
    case QStyle::SC_TitleBarNormalButton:
      painter.drawRect(box.adjusted(0, 3, -3, 0));
      painter.drawPolyline(QPolygonF({{box.left() + 3, box.top()},
                                      {box.right(), box.top()},
                                      {box.right(), box.bottom() - 3}}));
      break;
    default:
      painter.drawLine(box.topLeft(), box.bottomRight());
      painter.drawLine(box.topRight(), box.bottomLeft());
  }
}

void DrawScrollBar(const QStyleOptionSlider& option, const QRect& slider, QPainter& painter) {
  painter.fillRect(option.rect, tone::kGround);
  if (option.minimum >= option.maximum) return;
  const bool lit = option.state.testFlag(QStyle::State_Sunken) ||
                   (option.state.testFlag(QStyle::State_MouseOver) &&
                    option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider));
  const QColor color = lit ? Mix(tone::kLine, tone::kMuted, 0.6) : tone::kLine;
  DrawRounded(painter, QRectF(slider).adjusted(2, 2, -2, -2), color, color);
}

void DrawProgressBar(const QStyleOptionProgressBar& option, QPainter& painter) {
  const QRectF all(option.rect);
  DrawRounded(painter, all, tone::kGround, tone::kLine);
  const double range = std::max(option.maximum - option.minimum, 1);
  const double done = std::clamp((option.progress - option.minimum) / range, 0.0, 1.0);
  painter.save();
  painter.setClipRect(QRectF(all.topLeft(), QSizeF(all.width() * done, all.height())));
  DrawRounded(painter, all, Mix(tone::kGround, tone::kAccent, 0.42), tone::kAccent);
  painter.restore();
  painter.setPen(tone::kText);
  painter.drawText(all, Qt::AlignCenter | Qt::TextSingleLine, option.text);
}

void DrawMenuItem(const QStyleOptionMenuItem& option, QPainter& painter) {
  painter.fillRect(option.rect, tone::kWindow);
  if (option.menuItemType == QStyleOptionMenuItem::Separator) {
    painter.fillRect(option.rect.left() + 8, option.rect.center().y(), option.rect.width() - 16, 1,
                     tone::kLine);
    return;
  }
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const bool lit = enabled && option.state.testFlag(QStyle::State_Selected);
  if (lit) {
    DrawRounded(painter, QRectF(option.rect).adjusted(3, 1, -3, -1), tone::kAccent, tone::kAccent);
  }
  const auto texts = option.text.split(QLatin1Char('\t'));
  const QRect place = option.rect.adjusted(kMenuSide, 0, -kMenuSide, 0);
  constexpr int kLine = Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextSingleLine;
  painter.setFont(option.font);
  painter.setPen(lit ? tone::kOnAccent : enabled ? tone::kText : tone::kMuted);
  painter.drawText(place, kLine | Qt::AlignLeft, texts[0]);
  if (option.checked) {
    DrawTick(painter, QRectF(option.rect.left(), option.rect.center().y() - 7, kMenuSide, 14),
             painter.pen().color());
  }
  if (texts.size() < 2) return;
  painter.setPen(lit ? tone::kOnAccent : tone::kMuted);
  painter.drawText(place, kLine | Qt::AlignRight, texts[1]);
}

QSize MenuItemSize(const QStyleOptionMenuItem& option) {
  if (option.menuItemType == QStyleOptionMenuItem::Separator) return {10, kSeparatorRow};
  const QFontMetrics metrics(option.font);
  const auto texts = option.text.split(QLatin1Char('\t'));
  int width = metrics.size(Qt::TextShowMnemonic, texts[0]).width() + 2 * kMenuSide + kMenuGap;
  if (texts.size() > 1) width += metrics.horizontalAdvance(texts[1]) + kMenuGap;
  return {width, kMenuRow};
}

}  // namespace qt

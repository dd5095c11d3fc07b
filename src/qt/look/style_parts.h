#pragma once

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

// The pieces that the style is drawn from.
namespace qt {

/// A rectangle with round corners and a hairline.
void DrawRounded(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& line,
                 double radius = 5);
[[nodiscard]] bool IsDefaultButton(const QStyleOption& option);
void DrawButtonPanel(const QStyleOption& option, QPainter& painter);
/// The ground of a text field, in its own colours where it has some; quieter where it is read only.
/// Nothing for the field inside of another control.
void DrawField(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void DrawComboBox(const QStyleOptionComboBox& option, const QRect& arrow, QPainter& painter);
/// Where the arrow of a combo box stands, or its text, in the box `all`.
[[nodiscard]] QRect ComboBoxPart(const QRect& all, QStyle::SubControl part);
void DrawCheckMark(const QStyleOption& option, QPainter& painter);
void DrawRadioMark(const QStyleOption& option, QPainter& painter);
/// The sign of a title bar's button in the middle of `rect`, with the pen of the painter.
void DrawTitleSign(QPainter& painter, QStyle::SubControl control, const QRectF& rect);
/// Its text stands on the part that is done as well as on the rest.
void DrawProgressBar(const QStyleOptionProgressBar& option, QPainter& painter);
void DrawScrollBar(const QStyleOptionSlider& option, const QRect& slider, QPainter& painter);
void DrawMenuItem(const QStyleOptionMenuItem& option, QPainter& painter);
[[nodiscard]] QSize MenuItemSize(const QStyleOptionMenuItem& option);

}  // namespace qt

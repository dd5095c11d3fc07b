#pragma once

#include <QIcon>
#include <QPainter>

#include "platform/controls.h"

namespace qt {

/// Draws `picture` into `rect`, at any size.
void DrawPicture(QPainter& painter, const QRectF& rect, platform::Picture picture);

/// The program's mark.
void DrawMark(QPainter& painter, const QRectF& rect);

[[nodiscard]] QIcon ProgramIcon();
/// A small table, for the button that brings up the board.
[[nodiscard]] QIcon BoardIcon();
/// Two points to the right: there is more than fits.
[[nodiscard]] QIcon MoreIcon();
/// A letter in a disc, for message boxes.
[[nodiscard]] QIcon SignIcon(QChar sign, const QColor& color);

}  // namespace qt

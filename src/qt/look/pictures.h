#pragma once

#include <functional>

#include <QIcon>
#include <QPainter>

#include "platform/controls.h"

namespace qt {

/// Runs `draw` on a square of 24 x 24 units laid into the middle of `rect`.
void OnGrid24(QPainter& painter, const QRectF& rect, const std::function<void(QPainter&)>& draw);

/// Draws `picture` into `rect`, at any size.
void DrawPicture(QPainter& painter, const QRectF& rect, platform::Picture picture);

/// The program's mark.
void DrawMark(QPainter& painter, const QRectF& rect);

[[nodiscard]] QIcon ProgramIcon();
/// Two points to the right: there is more than fits.
[[nodiscard]] QIcon MoreIcon();
/// A letter in a disc, for message boxes.
[[nodiscard]] QIcon SignIcon(QChar sign, const QColor& color);

}  // namespace qt

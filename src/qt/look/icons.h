#pragma once

#include <QIcon>
#include <QPainter>

#include "platform/menu.h"

namespace qt {

/// Draws the sign into `rect`, at any size.
void DrawIcon(QPainter& painter, const QRectF& rect, platform::Icon icon);

/// The same for buttons that take an icon; it is drawn anew for every size and scale.
[[nodiscard]] QIcon IconFor(platform::Icon icon);

}  // namespace qt

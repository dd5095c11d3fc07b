#pragma once

#include <QPainter>

#include "platform/menu.h"

namespace qt {

/// Draws the signs of pages, web, spreadsheet and chat on a square of 24 x 24 units; nothing for
/// any other.
void DrawServiceIcon(QPainter& painter, platform::Icon icon);

}  // namespace qt

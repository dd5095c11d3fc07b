#pragma once

#include <QWidget>

#include "platform/menu.h"
#include "qt/look/binders.h"

namespace qt {

/// A slim row with a button for each tool. The tools stand as they are now; `bar` outlives the
/// bond. Without a tool it takes no room. Tools that don't fit into its width stand in a menu at
/// its end.
[[nodiscard]] QWidget* MakeToolBar(platform::ToolBar& bar, Binders& binders, QWidget* parent);

}  // namespace qt

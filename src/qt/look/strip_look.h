#pragma once

#include <QWidget>

#include "qt/look/binders.h"
#include "shell/mdi.h"

namespace qt {

/// The strip at the foot of the main window: session and portfolio first, then commands, status
/// ticker, server time and date. It takes any width: one line where all of it is readable on that,
/// else two. On a short line the list of portfolios gives way, then the gaps, then figures that are
/// wider than usual, which end in an ellipsis. With usual ones nothing is cut from 700 pixels on.
[[nodiscard]] QWidget* MakeStrip(shell::MDI& mdi, Binders& binders, QWidget* parent);

}  // namespace qt

#pragma once

#include "portfolios/t_cartera.h"
#include "qt/ports/looks.h"
#include "views/grid_view.h"

namespace qt {

/// A market view: its grid below the bar that slides away. The bar's commands are in the grid's
/// menu too, with Ctrl+S (save), Ctrl+C (copy) and Ctrl+P (print).
[[nodiscard]] Look MakeBoardLook(views::GridView& view, FrameClock& clock);
/// The same for what a portfolio holds.
[[nodiscard]] Look MakeHoldingsLook(portfolios::TCartera& view, FrameClock& clock);

}  // namespace qt

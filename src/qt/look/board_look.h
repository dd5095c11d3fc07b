#pragma once

#include <functional>

#include <QKeySequence>

#include "qt/look/binders.h"
#include "qt/ports/looks.h"
#include "views/grid_view.h"

namespace qt {

/// What a market view looks like besides its grid.
struct BoardDesign {
  QString empty_text = QStringLiteral("Sin instrumentos todavía");  // in the place of rows
  QKeySequence first_key = QKeySequence::Save;                      // of Command4
  /// Makes what stands below the bar, where that isn't the grid alone, and puts the grid there.
  std::function<QWidget*(GridWidget& grid, Binders& binders)> surround{};
};

/// A market view: its grid below the bar that slides away. The bar's commands are in the grid's
/// menu too, with Ctrl+C (copy), Ctrl+P (print), Ctrl+G (chart) and the first one's own key. Where
/// the bar isn't visible there is none of it.
[[nodiscard]] Look MakeBoardLook(views::GridView& view, FrameClock& clock,
                                 const BoardDesign& design = {});

}  // namespace qt

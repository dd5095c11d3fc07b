#pragma once

#include "qt/ports/looks.h"
#include "views/colores.h"

namespace qt {

/// The dialog of colours, fonts and columns, with the preview across its foot.
[[nodiscard]] Look MakeColoresLook(views::Colores& window, FrameClock& clock);

}  // namespace qt

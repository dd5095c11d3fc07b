#pragma once

#include "portfolios/cartera.h"
#include "portfolios/detalle.h"
#include "portfolios/operar_cartera.h"
#include "qt/ports/looks.h"

namespace qt {

/// The dialog that adds a portfolio, beside the portfolios there are. After one is added the cursor
/// is in the first field again.
[[nodiscard]] Look MakePortfolioLook(portfolios::Cartera& window, FrameClock& clock);
/// The dialog that records a purchase or a sale, beside the positions of the portfolio. The name
/// that the tool tip of the code gives stands below the code as well.
[[nodiscard]] Look MakeOperationLook(portfolios::Operar_Cartera& window, FrameClock& clock);
/// The positions of a portfolio and the operations behind one of them.
[[nodiscard]] Look MakeDetailLook(portfolios::Detalle& window, FrameClock& clock);

}  // namespace qt

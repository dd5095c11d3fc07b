#pragma once

#include "qt/ports/looks.h"
#include "views/ticket.h"

namespace qt {

/// A quote ticket: its labels and list stand where the model says, with quiet names painted beside
/// them. A button, Ctrl+D and the menu do what the double click on the selling total does; Esc and
/// Ctrl+F4 close.
[[nodiscard]] Look MakeTicketLook(views::Ticker2& window, FrameClock& clock);

}  // namespace qt

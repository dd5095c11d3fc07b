#include "views/ticket.h"

namespace views {

void DesignTicket(Ticker2& ticket) { ticket.set_rect({600, 600, 6600, 4200}); }

}  // namespace views

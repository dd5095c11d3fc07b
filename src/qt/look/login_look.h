#pragma once

#include "feed/conecta.h"
#include "qt/ports/looks.h"

namespace qt {

/// The login window.
[[nodiscard]] Look MakeLoginLook(feed::Conecta& conecta, FrameClock& clock);

}  // namespace qt

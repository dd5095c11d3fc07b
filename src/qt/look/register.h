#pragma once

#include "qt/ports/looks.h"

namespace qt {

/// Makes the look of every window of the program known.
void RegisterLooks(Looks& looks);

}  // namespace qt

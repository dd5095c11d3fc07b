#pragma once

#include <vector>

#include "platform/menu.h"

namespace shell {

class Terminal;

/// Joins every command of the program to the ways in which it is offered: the menu tree of the main
/// window and the buttons of its strip. `terminal` outlives both.
void JoinCommands(Terminal& terminal);

}  // namespace shell

#pragma once

namespace shell {

class Terminal;

/// Offers every command of the program in the menu, on the tool bar and in the strip of the main
/// window. None runs once the program ends. `terminal` outlives the window's controls.
void JoinCommands(Terminal& terminal);

}  // namespace shell

#pragma once

namespace shell {

class Terminal;

// What the user is asked for in a box of one line. Giving up counts as an empty answer.

/// Asks for the code of a share and sends for the market of its options, while there is a session.
/// `capitals`: the code goes out in capitals instead of as it was typed, and their view comes up.
void PedirOpciones(Terminal& terminal, bool capitals);

/// Asks for the period of the charting package's refresh, in seconds. Less than 10 counts as 10.
/// What is above 65.535, or below 0, changes nothing.
void PedirPeriodo(Terminal& terminal);

/// The same in an integer of 16 bits: what it doesn't hold counts as nothing typed.
void PedirPeriodoCorto(Terminal& terminal);

}  // namespace shell

#pragma once

#include "base/program_dir.h"

namespace shell {

class Terminal;

/// The load of the main window: prepares the tick directory, loads the market windows hidden, sets
/// up both tickers, reads the colours and applies them, reads alarms and portfolios. A step that
/// fails leaves its default. Creates the files that it reads but for the alarms', and empties
/// "Ticks".
void StartUp(Terminal& terminal, const base::ProgramDir& directory);

}  // namespace shell

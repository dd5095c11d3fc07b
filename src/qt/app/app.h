#pragma once

namespace qt {

/// The terminal: from the start of the process to its exit status. Takes nothing from the command
/// line; its files lie beside the executable.
int Run(int argc, char** argv);

}  // namespace qt

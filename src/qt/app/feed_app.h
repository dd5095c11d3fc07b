#pragma once

namespace qt {

/// The embedded market by itself, at the rates that the command line names (`--help` tells), on the
/// loopback interface. Prints its address; runs until it is ended or its `--seconds` have passed.
int RunFeed(int argc, char** argv);

}  // namespace qt

#pragma once

#include <string>
#include <vector>

#include "demo/instrument.h"
#include "demo/session_clock.h"

// Messages in words, as they go over the wire (Windows-1252).
namespace demo::bulletins {

/// The first line on the ticker of whoever connects: the data are simulated.
[[nodiscard]] std::string Greeting();

/// Appends what is due in this second: lines about the opening, the close and each half hour, a
/// word from the control desk each twenty minutes, and the day's notice if `notices`.
void Announce(const SessionClock& clock, const Instrument& index, bool notices,
              std::vector<std::string>& messages);

}  // namespace demo::bulletins

#pragma once

#include "qt/look/web_plugin.h"

namespace qt {

/// Loads the web view, which then stays for the rest of the run. Nothing of it is in the program
/// before. nullptr where there is none.
[[nodiscard]] WebPlugin* LoadWebPlugin();

}  // namespace qt

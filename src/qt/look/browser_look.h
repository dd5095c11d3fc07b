#pragma once

#include "qt/look/service_looks.h"
#include "qt/look/web_plugin.h"

namespace qt {

/// The web window on that web view. Where that is nullptr, pages go to the desktop's browser.
[[nodiscard]] Look MakeBrowserLook(services::Browser& window, FrameClock& clock, WebPlugin* plugin);

}  // namespace qt

#pragma once

#include "qt/ports/looks.h"
#include "services/browser.h"
#include "services/irc.h"
#include "services/pages.h"
#include "services/sobre.h"

namespace qt {

/// The server's pages: buttons, a field for a number, the page on drawn grounds.
[[nodiscard]] Look MakePagesLook(services::Pages& window, FrameClock& clock);
/// The chat: conversation, people, input line.
[[nodiscard]] Look MakeChatLook(services::Irc& window, FrameClock& clock);
/// The web window. Loads the web view when it is first made; where there is none, pages go to the
/// desktop's browser, and it says so.
[[nodiscard]] Look MakeBrowserLook(services::Browser& window, FrameClock& clock);
/// What the program is.
[[nodiscard]] Look MakeAboutLook(services::Sobre& window, FrameClock& clock);

}  // namespace qt

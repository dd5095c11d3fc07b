#pragma once

#include <memory>

#include "platform/ports.h"

namespace qt {

/// The windows of other programs on this screen: under X11 those that the window manager or the
/// root window lists, told apart by WM_CLASS; on any other screen none at all. Its connection to
/// the screen is its own, made when it is first asked, and nothing that goes wrong there reaches
/// Qt's. A message is a ClientMessage of type "_COTIRAMA_MESSAGE": its number and two zeros, 32
/// bits each.
[[nodiscard]] std::unique_ptr<platform::OtherWindows> MakeOtherWindows();

}  // namespace qt

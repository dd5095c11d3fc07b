#pragma once

#include <memory>
#include <string>

#include "platform/ports.h"

namespace qt {

/// The windows of other programs on this screen: under X11 those of `MakeX11Windows`, on any other
/// screen none at all.
[[nodiscard]] std::unique_ptr<platform::OtherWindows> MakeOtherWindows();

/// The windows of an X server ("" for the one that the environment names): those that the window
/// manager lists, else those not far below the root, told apart by WM_CLASS. The connection is its
/// own, made when it is first asked; when it breaks there is no window any more. A message is a
/// ClientMessage of type "_COTIRAMA_MESSAGE": its number and two zeros, 32 bits each.
[[nodiscard]] std::unique_ptr<platform::OtherWindows> MakeX11Windows(std::string display = {});

}  // namespace qt

#pragma once

#include <string_view>

#include "platform/controls.h"
#include "platform/window.h"

namespace services {

/// Says what the program is: one label with name, version and licence. `programa` is the name with
/// its version.
class Sobre : public platform::Window {
 public:
  Sobre(platform::Platform& platform, std::string_view programa);

  platform::Label Label1;
};

}  // namespace services

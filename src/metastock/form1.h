#pragma once

#include "platform/controls.h"
#include "platform/window.h"

namespace metastock {

/// Progress of the history download. Holds no logic of its own.
class Form1 : public platform::Window {
 public:
  explicit Form1(platform::Platform& platform);

  platform::Label Label1;        // heading of the list
  platform::ListBox List1;       // names finished
  platform::Label Label2;        // the request that was sent last
  platform::ProgressBar Avance;  // entries finished, of all
};

}  // namespace metastock

#pragma once

#include "platform/controls.h"
#include "platform/platform.h"

namespace metastock {

/// Makes a running charting package draw its charts anew, by keys that go to whatever window has
/// the focus. What the constructor takes outlives it.
class Refresh {
 public:
  /// `check` is the box that lets the keys go out: it comes into sight when the package is first
  /// found. `due` says that a period has passed; it is taken back when the keys have gone out.
  Refresh(platform::OtherWindows& windows, platform::CheckBox& check, bool& due)
      : windows_(windows), check_(check), due_(due) {}

  /// True when the package isn't running: nothing happens then.
  bool RefreshMetaStock();
  /// Tells the package, as it was last found, that a file has changed.
  void Avisar();

 private:
  platform::OtherWindows& windows_;
  platform::CheckBox& check_;
  bool& due_;
  platform::OtherWindows::Handle MetaWindow = 0;
};

}  // namespace metastock

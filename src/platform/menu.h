#pragma once

#include <functional>
#include <string>
#include <vector>

namespace platform {

/// One entry of a menu: a command, a submenu where `items` isn't empty, or a separator where
/// the caption is empty. Captions may hold "&" before the mnemonic letter. Fixed for the run.
struct MenuItem {
  std::string caption;
  std::function<void()> action;
  std::vector<MenuItem> items;
};

}  // namespace platform

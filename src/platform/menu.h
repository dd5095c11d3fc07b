#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"

namespace platform {

/// One entry of a menu: a command, a submenu where `items` isn't empty, or a separator where
/// the caption is empty. Captions may hold "&" before the mnemonic letter. `key` is an accelerator
/// as in "Ctrl+1", or empty. Fixed for the run.
struct MenuItem {
  std::string caption;
  std::function<void()> action{};
  std::vector<MenuItem> items{};
  std::string key{};
};

/// Signs on tool buttons, drawn by the screen.
enum class Icon {
  none,
  board,
  indices,
  futures,
  currencies,
  colors,
  price_alarm,
  volume_alarm,
  alarms,
  portfolio,
  operations,
  statistics,
  operate,
  trades,
  options,
  period,
  stores,
  history,
  pages,
  web,
  sheet_on,
  sheet_off,
  home,
  service,
  forum,
  chat,
  about,
  back,
  forward,
  refresh,
  halt,
  search
};

/// One button of a tool bar, or a separator where the number is 0. The tip is its accessible name.
struct Tool {
  int number = 0;
  std::string tip;
  Icon icon = Icon::none;
};

/// A row of buttons, each known by its number. The tools are filled in before its window is shown.
class ToolBar : public Control {
 public:
  std::vector<Tool> tools;
  std::function<void(const Tool& tool)> on_click;

  void Click(const Tool& tool) {
    if (on_click) on_click(tool);
  }
};

}  // namespace platform

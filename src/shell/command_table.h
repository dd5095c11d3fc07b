#pragma once

#include <array>
#include <functional>
#include <span>
#include <string_view>

#include "platform/menu.h"

namespace shell {

class MDI;
class Terminal;

/// The menus, from left to right.
enum class Menu { paginas, instrumentos, alarmas, carteras, meta_stock, excel, internet, none };

[[nodiscard]] std::string_view CaptionOf(Menu menu);

/// One command and all the ways in which it is offered. Any of them may be missing.
struct Command {
  using Action = void (*)(Terminal& terminal);
  using Hook = std::function<void()>& (*)(MDI& mdi);

  Menu menu = Menu::none;
  int item = 0;                // place in its menu; a gap is a separator
  std::string_view caption{};  // with the mnemonic, which no other of its menu has
  std::string_view key{};      // accelerator
  int tool = 0;                // number of its tool
  std::string_view tip{};      // of its tool, where the caption needs its menu to be understood
  platform::Icon icon = platform::Icon::none;
  Action action = nullptr;
  Action tool_action = nullptr;  // where the tool does something else
  std::array<Hook, 2> strip{};   // what runs it in the strip
};

/// All commands of the program, in the order of their menus; last those that stand in none.
[[nodiscard]] std::span<const Command> Commands();

}  // namespace shell

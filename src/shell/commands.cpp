#include "shell/commands.h"

#include <algorithm>
#include <string>

#include "shell/command_table.h"
#include "shell/terminal.h"

namespace shell {
namespace {

std::string Plain(std::string_view caption) {
  std::string plain(caption);
  std::erase(plain, '&');
  return plain;
}

void Run(Terminal& terminal, Command::Action action) {
  if (terminal.MDI.FaseCierre == 0) action(terminal);
}

platform::MenuItem ItemOf(Terminal& terminal, const Command& command) {
  return {std::string(command.caption),
          [&terminal, action = command.action] { Run(terminal, action); },
          {},
          std::string(command.key)};
}

void AddToMenu(Terminal& terminal, const Command& command, const Command* before) {
  MDI& mdi = terminal.MDI;
  if (command.menu == Menu::none) {
    mdi.keys.push_back(ItemOf(terminal, command));
    return;
  }
  const bool first = !before || before->menu != command.menu;
  if (first) {
    mdi.menu.push_back({std::string(CaptionOf(command.menu))});
  } else if (command.item > before->item + 1) {
    mdi.menu.back().items.push_back({});
  }
  mdi.menu.back().items.push_back(ItemOf(terminal, command));
}

void AddTool(platform::ToolBar& bar, const Command& command, const Command* before) {
  if (command.tool == 0) return;
  if (before && before->menu != command.menu) bar.tools.push_back({});
  bar.tools.push_back(
      {command.tool, Plain(command.tip.empty() ? command.caption : command.tip), command.icon});
}

void AddToStrip(Terminal& terminal, const Command& command) {
  for (const Command::Hook hook : command.strip) {
    if (hook) {
      hook(terminal.MDI) = [&terminal, action = command.action] { Run(terminal, action); };
    }
  }
}

void RunTool(Terminal& terminal, int number) {
  if (number == 0) return;
  const auto command = std::ranges::find(Commands(), number, &Command::tool);
  if (command == Commands().end()) return;
  Run(terminal, command->tool_action ? command->tool_action : command->action);
}

}  // namespace

void JoinCommands(Terminal& terminal) {
  const Command* before = nullptr;
  for (const Command& command : Commands()) {
    AddToMenu(terminal, command, before);
    AddTool(terminal.MDI.ActiveBar1, command, before);
    AddToStrip(terminal, command);
    before = &command;
  }
  terminal.MDI.ActiveBar1.on_click = [&terminal](const platform::Tool& tool) {
    RunTool(terminal, tool.number);
  };
}

}  // namespace shell

#include "shell/commands.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <tuple>

#include "shell/prompts.h"
#include "shell/terminal.h"

namespace shell {
namespace {

using platform::Icon;

/// The menus, from left to right.
enum class Menu { instrumentos, alarmas, carteras, meta_stock };
constexpr std::array<std::string_view, 4> kMenuCaptions{"&Instrumentos", "&Alarmas", "&Carteras",
                                                        "&Meta Stock"};

/// One command and all the ways in which it is offered.
struct Command {
  using Action = void (*)(Terminal& terminal);

  Menu menu;
  int item;                  // place in its menu; a gap is a separator
  std::string_view caption;  // with the mnemonic, which no other of its menu has
  std::string_view key;      // accelerator
  int tool;                  // number of its tool
  Icon icon;
  Action action;
  Action tool_action = nullptr;  // where the tool does something else
  platform::Button MDI::*button = nullptr;
  std::string_view button_tip{};
};

template <alarms::AlarmTable::Tipo kTipo>
void DefineAlarm(Terminal& terminal) {
  terminal.APrecio.tipo = kTipo;
  terminal.APrecio.Show();
}

constexpr std::array kCommands{
    Command{.menu = Menu::instrumentos,
            .item = 0,
            .caption = "&Mercado Continuo",
            .key = "Ctrl+1",
            .tool = 24,
            .icon = Icon::board,
            .action = [](Terminal& terminal) { terminal.Continuo.Show(); },
            .button = &MDI::Command3,
            .button_tip = "Muestra el Mercado Continuo"},
    Command{.menu = Menu::instrumentos,
            .item = 7,
            .caption = "&Opciones MEFF",
            .key = "Ctrl+M",
            .tool = 66,
            .icon = Icon::options,
            .action = [](Terminal& terminal) { PedirOpciones(terminal, /*capitals=*/false); },
            .tool_action = [](Terminal& terminal) { PedirOpciones(terminal, /*capitals=*/true); }},
    Command{.menu = Menu::alarmas,
            .item = 0,
            .caption = "Alarma por &Precio",
            .key = "F7",
            .tool = 30,
            .icon = Icon::price_alarm,
            .action = DefineAlarm<alarms::AlarmTable::kPrecio>},
    Command{.menu = Menu::alarmas,
            .item = 1,
            .caption = "Alarma por &Volumen",
            .key = "F8",
            .tool = 31,
            .icon = Icon::volume_alarm,
            .action = DefineAlarm<alarms::AlarmTable::kVolumen>},
    Command{.menu = Menu::alarmas,
            .item = 3,
            .caption = "Ver &Alarmas",
            .key = "F9",
            .tool = 32,
            .icon = Icon::alarms,
            .action = [](Terminal& terminal) { terminal.ListAlarm.Show(); },
            .button = &MDI::Command1,
            .button_tip = "Lista de alarmas"},
    Command{.menu = Menu::carteras,
            .item = 5,
            .caption = "&Negociaciones",
            .key = "Ctrl+T",
            .tool = 80,
            .icon = Icon::trades,
            .action = [](Terminal& terminal) { terminal.Form2.Show(); }},
    Command{.menu = Menu::meta_stock,
            .item = 3,
            .caption = "&Definir Tiempo de Refresco",
            .key = "Ctrl+R",
            .tool = 52,
            .icon = Icon::period,
            .action = PedirPeriodo,
            .tool_action = PedirPeriodoCorto},
};

constexpr bool InMenuOrder() {
  return std::ranges::is_sorted(
      kCommands, {}, [](const Command& command) { return std::tuple(command.menu, command.item); });
}
static_assert(InMenuOrder());

std::string Plain(std::string_view caption) {
  std::string plain(caption);
  std::erase(plain, '&');
  return plain;
}

void Run(Terminal& terminal, Command::Action action) {
  if (terminal.MDI.FaseCierre == 0) action(terminal);
}

void AddToMenu(Terminal& terminal, const Command& command, const Command* before) {
  auto& menus = terminal.MDI.menu;
  const bool first = !before || before->menu != command.menu;
  if (first) {
    menus.push_back({std::string(kMenuCaptions[static_cast<std::size_t>(command.menu)])});
  } else if (command.item > before->item + 1) {
    menus.back().items.push_back({});
  }
  menus.back().items.push_back({std::string(command.caption),
                                [&terminal, &command] { Run(terminal, command.action); },
                                {},
                                std::string(command.key)});
}

void AddTool(platform::ToolBar& bar, const Command& command, const Command* before) {
  if (before && before->menu != command.menu) bar.tools.push_back({});
  bar.tools.push_back({command.tool, Plain(command.caption), command.icon});
}

void RunTool(Terminal& terminal, int number) {
  const auto command = std::ranges::find(kCommands, number, &Command::tool);
  if (command == kCommands.end()) return;
  Run(terminal, command->tool_action ? command->tool_action : command->action);
}

}  // namespace

void JoinCommands(Terminal& terminal) {
  MDI& mdi = terminal.MDI;
  const Command* before = nullptr;
  for (const Command& command : kCommands) {
    AddToMenu(terminal, command, before);
    AddTool(mdi.ActiveBar1, command, before);
    before = &command;
    if (!command.button) continue;
    platform::Button& button = mdi.*command.button;
    button.set_tool_tip(command.button_tip);
    button.on_click = [&terminal, &command] { Run(terminal, command.action); };
  }
  mdi.ActiveBar1.on_click = [&terminal](const platform::Tool& tool) {
    RunTool(terminal, tool.number);
  };
}

}  // namespace shell

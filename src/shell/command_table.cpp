#include "shell/command_table.h"

#include <algorithm>
#include <tuple>

#include "shell/prompts.h"
#include "shell/terminal.h"

namespace shell {
namespace {

using platform::Icon;

constexpr std::array<std::string_view, 4> kMenuCaptions{"&Instrumentos", "&Alarmas", "&Carteras",
                                                        "&Meta Stock"};

template <auto kWindow>
void Show(Terminal& terminal) {
  (terminal.*kWindow).Show();
}

template <alarms::AlarmTable::Tipo kTipo>
void DefineAlarm(Terminal& terminal) {
  terminal.APrecio.tipo = kTipo;
  terminal.APrecio.Show();
}

template <bool kCapitals>
void AskForOptions(Terminal& terminal) {
  PedirOpciones(terminal, kCapitals);
}

void UpdateHistory(Terminal& terminal) { terminal.Download.Actualizar(); }

template <auto kControl>
std::function<void()>& Click(MDI& mdi) {
  return (mdi.*kControl).on_click;
}

template <auto kControl>
std::function<void()>& DoubleClick(MDI& mdi) {
  return (mdi.*kControl).on_double_click;
}

constexpr std::array kCommands{
    Command{.menu = Menu::instrumentos,
            .item = 0,
            .caption = "&Mercado Continuo",
            .key = "Ctrl+1",
            .tool = 24,
            .icon = Icon::board,
            .action = Show<&Terminal::Continuo>,
            .strip = {Click<&MDI::Command3>}},
    Command{.menu = Menu::instrumentos,
            .item = 1,
            .caption = "&Indices",
            .key = "Ctrl+2",
            .tool = 20,
            .icon = Icon::indices,
            .action = Show<&Terminal::Indices>,
            .strip = {Click<&MDI::Command4>}},
    Command{.menu = Menu::instrumentos,
            .item = 2,
            .caption = "&Futuros",
            .key = "Ctrl+3",
            .tool = 21,
            .icon = Icon::futures,
            .action = Show<&Terminal::Futuros>,
            .strip = {Click<&MDI::Command5>}},
    Command{.menu = Menu::instrumentos,
            .item = 3,
            .caption = "&Divisas",
            .key = "Ctrl+4",
            .tool = 22,
            .icon = Icon::currencies,
            .action = Show<&Terminal::Divisas>,
            .strip = {Click<&MDI::Command6>}},
    Command{.menu = Menu::instrumentos,
            .item = 4,
            .caption = "&Estadísticas",
            .key = "Ctrl+5",
            .action = Show<&Terminal::Estadisticas>},
    Command{.menu = Menu::instrumentos,
            .item = 6,
            .caption = "&Configuracion",
            .key = "Ctrl+L",
            .tool = 23,
            .icon = Icon::colors,
            .action = Show<&Terminal::Colores>},
    Command{.menu = Menu::instrumentos,
            .item = 7,
            .caption = "&Opciones MEFF",
            .key = "Ctrl+M",
            .tool = 66,
            .icon = Icon::options,
            .action = AskForOptions</*kCapitals=*/false>,
            .tool_action = AskForOptions</*kCapitals=*/true>},
    Command{.menu = Menu::instrumentos,
            .item = 8,
            .caption = "&Hot",
            .key = "Ctrl+6",
            .action = Show<&Terminal::Hot>},
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
            .action = Show<&Terminal::ListAlarm>,
            .strip = {Click<&MDI::Command1>}},
    Command{.menu = Menu::carteras,
            .item = 0,
            .caption = "&Configurar Carteras",
            .key = "Ctrl+K",
            .tool = 40,
            .icon = Icon::portfolio,
            .action = Show<&Terminal::Cartera>},
    Command{.menu = Menu::carteras,
            .item = 1,
            .caption = "&Ver Carteras",
            .key = "F2",
            .tool = 41,
            .icon = Icon::operations,
            .action = Show<&Terminal::Detalle>},
    Command{.menu = Menu::carteras,
            .item = 3,
            .caption = "&Estadísticas",
            .tool = 42,
            .icon = Icon::statistics,
            .action = Show<&Terminal::Detalle>},
    Command{.menu = Menu::carteras,
            .item = 5,
            .caption = "&Negociaciones",
            .key = "Ctrl+T",
            .tool = 80,
            .icon = Icon::trades,
            .action = Show<&Terminal::Form2>},
    Command{.menu = Menu::meta_stock,
            .item = 0,
            .caption = "&Configurar",
            .key = "Ctrl+E",
            .tool = 50,
            .icon = Icon::stores,
            .action = Show<&Terminal::Meta>},
    Command{.menu = Menu::meta_stock,
            .item = 1,
            .caption = "&Actualizar",
            .key = "F5",
            .tool = 51,
            .icon = Icon::history,
            .action = UpdateHistory},
    Command{.menu = Menu::meta_stock,
            .item = 3,
            .caption = "&Definir Tiempo de Refresco",
            .key = "Ctrl+R",
            .tool = 52,
            .icon = Icon::period,
            .action = PedirPeriodo,
            .tool_action = PedirPeriodoCorto},
    Command{.item = 0,
            .caption = "Operar",
            .key = "F3",
            .action = Show<&Terminal::Operar_Cartera>,
            .strip = {Click<&MDI::Command2>}},
    Command{.item = 1,
            .caption = "Valores en Carteras",
            .key = "F4",
            .action = Show<&Terminal::TCartera>,
            .strip = {Click<&MDI::Label1>, DoubleClick<&MDI::Combo1>}},
};

constexpr bool InMenuOrder() {
  return std::ranges::is_sorted(
      kCommands, {}, [](const Command& command) { return std::tuple(command.menu, command.item); });
}
static_assert(InMenuOrder());

}  // namespace

std::string_view CaptionOf(Menu menu) {
  return menu == Menu::none ? "" : kMenuCaptions[static_cast<std::size_t>(menu)];
}

std::span<const Command> Commands() { return kCommands; }

}  // namespace shell

#include "shell/command_table.h"

#include <algorithm>
#include <tuple>

#include "shell/prompts.h"
#include "shell/terminal.h"

namespace shell {
namespace {

using platform::Icon;
using Pagina = services::Browser::Pagina;

constexpr std::array<std::string_view, 7> kMenuCaptions{
    "&Páginas", "&Instrumentos", "&Alarmas", "&Carteras", "&Meta Stock", "&Excel", "Inter&net"};

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

template <services::Browser::Pagina kPagina>
void Open(Terminal& terminal) {
  terminal.Browser.Abrir(kPagina);
}

void StartSheet(Terminal& terminal) {
  if (terminal.Excel.ExcelBusy == 0) terminal.Excel.ExcelAttach();
}

void StartSheetOnce(Terminal& terminal) {
  if (terminal.Excel.ExcelOff == 0) StartSheet(terminal);
}

void StopSheet(Terminal& terminal) { terminal.Excel.ExcelDetach(); }

template <auto kControl>
std::function<void()>& Click(MDI& mdi) {
  return (mdi.*kControl).on_click;
}

template <auto kControl>
std::function<void()>& DoubleClick(MDI& mdi) {
  return (mdi.*kControl).on_double_click;
}

constexpr std::array kCommands{
    Command{.menu = Menu::paginas,
            .item = 0,
            .caption = "&Páginas Cotirama",
            .key = "Ctrl+7",
            .tool = 10,
            .icon = Icon::pages,
            .action = Show<&Terminal::Pages>},
    Command{.menu = Menu::paginas,
            .item = 1,
            .caption = "&Internet",
            .key = "Ctrl+8",
            .tool = 25,
            .icon = Icon::web,
            .action = Show<&Terminal::Browser>},
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
            .tip = "Estadísticas de Carteras",
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
            .tip = "Configurar Meta Stock",
            .icon = Icon::stores,
            .action = Show<&Terminal::Meta>},
    Command{.menu = Menu::meta_stock,
            .item = 1,
            .caption = "&Actualizar",
            .key = "F5",
            .tool = 51,
            .tip = "Actualizar Meta Stock",
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
    Command{.menu = Menu::excel,
            .item = 0,
            .caption = "&Activar Cotirama Excel",
            .key = "Ctrl+H",
            .tool = 78,
            .icon = Icon::sheet_on,
            .action = StartSheetOnce,
            .tool_action = StartSheet},
    Command{.menu = Menu::excel,
            .item = 1,
            .caption = "&Deshactivar Cotirama Excel",
            .tool = 79,
            .icon = Icon::sheet_off,
            .action = StopSheet},
    Command{.menu = Menu::internet,
            .item = 0,
            .caption = "&Internet",
            .tool = 4,
            .tip = "Internet: página de inicio",
            .icon = Icon::home,
            .action = Open<Pagina::inicio>},
    Command{.menu = Menu::internet,
            .item = 1,
            .caption = "&Cotirama",
            .tool = 5,
            .tip = "Internet: página de Cotirama",
            .icon = Icon::service,
            .action = Open<Pagina::servicio>},
    Command{.menu = Menu::internet,
            .item = 2,
            .caption = "&Manual",
            .key = "F1",
            .action = Open<Pagina::manual>},
    Command{.menu = Menu::internet,
            .item = 4,
            .caption = "&Sugerencias",
            .tool = 99,
            .icon = Icon::forum,
            .action = Open<Pagina::foro>},
    Command{.menu = Menu::internet,
            .item = 5,
            .caption = "Sobre el &Autor",
            .tool = 6,
            .icon = Icon::about,
            .action = Show<&Terminal::Sobre>},
    Command{.menu = Menu::internet,
            .item = 7,
            .caption = "Irc C&hat",
            .key = "Ctrl+9",
            .tool = 1,
            .icon = Icon::chat,
            .action = Show<&Terminal::Irc>},
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

#include <algorithm>
#include <cctype>
#include <set>

#include "terminal_fixture.h"

namespace {

std::string Plain(std::string caption) {
  std::erase(caption, '&');
  return caption;
}

char Mnemonic(const std::string& caption) {
  const std::size_t mark = caption.find('&');
  return mark + 1 < caption.size()
             ? static_cast<char>(std::tolower(static_cast<unsigned char>(caption[mark + 1])))
             : '\0';
}

class CommandsTest : public TerminalTest {
 protected:
  CommandsTest() { Start(); }

  /// Of all menus, unless one is named.
  void Pick(std::string_view caption, std::string_view menu_caption = {}) {
    std::vector<platform::MenuItem> items = terminal->MDI.keys;
    for (const auto& menu : terminal->MDI.menu) {
      if (!menu_caption.empty() && Plain(menu.caption) != menu_caption) continue;
      items.insert(items.end(), menu.items.begin(), menu.items.end());
    }
    const auto item = std::ranges::find(
        items, caption, [](const platform::MenuItem& one) { return Plain(one.caption); });
    ASSERT_NE(item, items.end()) << "no menu item " << caption;
    item->action();
  }
};

TEST_F(CommandsTest, MenusAndToolBarOfferWhatExistsInItsOrderWithoutClashes) {
  const auto& mdi = terminal->MDI;
  // The keys of boards, tickets, fields and panes come first.
  std::set<std::string> keys{"Ctrl+S", "Ctrl+C", "Ctrl+P", "Ctrl+G", "Ctrl+O",  "Ctrl+I", "Ctrl+D",
                             "Ctrl+A", "Ctrl+V", "Ctrl+X", "Ctrl+Z", "Ctrl+F4", "F6"};
  std::set<char> bar{Mnemonic(mdi.Check1.caption()), Mnemonic(mdi.Check2.caption())};
  std::set<platform::Icon> icons{platform::Icon::none};
  std::set<std::string> tips;
  std::string menus, tools;
  for (const auto& menu : mdi.menu) {
    EXPECT_TRUE(bar.insert(Mnemonic(menu.caption)).second) << menu.caption;
    menus += Plain(menu.caption) + ":";
    std::set<char> mnemonics{'\0'};
    for (const auto& item : menu.items) {
      menus += item.caption.empty() ? " -" : " [" + Plain(item.caption) + "]";
      if (item.caption.empty()) continue;
      EXPECT_TRUE(mnemonics.insert(Mnemonic(item.caption)).second) << item.caption;
      EXPECT_TRUE(item.key.empty() || keys.insert(item.key).second) << item.key;
    }
    menus += "\n";
  }
  for (const auto& item : mdi.keys) {
    EXPECT_TRUE(keys.insert(item.key).second) << item.key;
    menus += item.key + " " + item.caption + "\n";
  }
  for (const auto& tool : mdi.ActiveBar1.tools) {
    EXPECT_TRUE(tool.number == 0 || icons.insert(tool.icon).second) << tool.tip;
    EXPECT_TRUE(tool.number == 0 || tips.insert(tool.tip).second) << tool.tip;
    tools += tool.number == 0 ? "-\n" : std::to_string(tool.number) + " " + tool.tip + "\n";
  }
  EXPECT_EQ(menus,
            "Páginas: [Páginas Cotirama] [Internet]\n"
            "Instrumentos: [Mercado Continuo] [Indices] [Futuros] [Divisas] [Estadísticas] -"
            " [Configuracion] [Opciones MEFF] [Hot]\n"
            "Alarmas: [Alarma por Precio] [Alarma por Volumen] - [Ver Alarmas]\n"
            "Carteras: [Configurar Carteras] [Ver Carteras] - [Estadísticas] -"
            " [Negociaciones]\n"
            "Meta Stock: [Configurar] [Actualizar] - [Definir Tiempo de Refresco]\n"
            "Excel: [Activar Cotirama Excel] [Deshactivar Cotirama Excel]\n"
            "Internet: [Internet] [Cotirama] [Manual] - [Sugerencias] [Sobre el Autor] -"
            " [Irc Chat]\n"
            "F3 Operar\nF4 Valores en Carteras\n");
  EXPECT_EQ(tools,
            "10 Páginas Cotirama\n25 Internet\n-\n"
            "24 Mercado Continuo\n20 Indices\n21 Futuros\n22 Divisas\n23 Configuracion\n"
            "66 Opciones MEFF\n-\n"
            "30 Alarma por Precio\n31 Alarma por Volumen\n32 Ver Alarmas\n-\n"
            "40 Configurar Carteras\n41 Ver Carteras\n42 Estadísticas de Carteras\n"
            "80 Negociaciones\n-\n"
            "50 Configurar Meta Stock\n51 Actualizar Meta Stock\n"
            "52 Definir Tiempo de Refresco\n-\n"
            "78 Activar Cotirama Excel\n79 Deshactivar Cotirama Excel\n-\n"
            "4 Internet: página de inicio\n5 Internet: página de Cotirama\n99 Sugerencias\n"
            "6 Sobre el Autor\n1 Irc Chat\n");
}

TEST_F(CommandsTest, EveryWayOfACommandOpensItsWindow) {
  auto& t = *terminal;
  auto& log = outside.desktop().log;
  auto& mdi = t.MDI;
  struct Case {
    const char* command;
    int tool;
    std::vector<std::function<void()>*> strip;
    platform::Window* window;
    int tipo = 0;
    const char* menu = "";
  };
  const Case cases[] = {
      {"Páginas Cotirama", 10, {}, &t.Pages},
      {"Internet", 25, {}, &t.Browser, 0, "Páginas"},
      {"Mercado Continuo", 24, {&mdi.Command3.on_click}, &t.Continuo},
      {"Indices", 20, {&mdi.Command4.on_click}, &t.Indices},
      {"Futuros", 21, {&mdi.Command5.on_click}, &t.Futuros},
      {"Divisas", 22, {&mdi.Command6.on_click}, &t.Divisas},
      {"Estadísticas", 0, {}, &t.Estadisticas},
      {"Configuracion", 23, {}, &t.Colores},
      {"Hot", 0, {}, &t.Hot},
      {"Alarma por Precio", 30, {}, &t.APrecio, 1},
      {"Alarma por Volumen", 31, {}, &t.APrecio, 4},
      {"Ver Alarmas", 32, {&mdi.Command1.on_click}, &t.ListAlarm},
      {"Configurar Carteras", 40, {}, &t.Cartera},
      {"Ver Carteras", 41, {}, &t.Detalle},
      {"Estadísticas", 42, {}, &t.Detalle, 0, "Carteras"},
      {"Negociaciones", 80, {}, &t.Form2},
      {"Configurar", 50, {}, &t.Meta},
      {"Actualizar", 51, {}, &t.Form1},
      {"Internet", 4, {}, &t.Browser, 0, "Internet"},
      {"Cotirama", 5, {}, &t.Browser},
      {"Manual", 0, {}, &t.Browser},
      {"Sugerencias", 99, {}, &t.Browser},
      {"Sobre el Autor", 6, {}, &t.Sobre},
      {"Irc Chat", 1, {}, &t.Irc},
      {"Operar", 0, {&mdi.Command2.on_click}, &t.Operar_Cartera},
      {"Valores en Carteras", 0, {&mdi.Label1.on_click, &mdi.Combo1.on_double_click}, &t.TCartera}};
  std::set<int> tools{66, 52, 78, 79};  // tried below, with their items
  std::ptrdiff_t items = 4;
  for (const Case& test : cases) {
    items += 1;
    tools.insert(test.tool);
    std::vector<std::function<void()>> ways{[&] { Pick(test.command, test.menu); }};
    if (test.tool != 0) ways.push_back([&] { PressTool(test.tool); });
    for (auto* hook : test.strip) ways.push_back(*hook);
    for (const auto& way : ways) {
      t.APrecio.tipo = 0;
      log.clear();
      way();
      ASSERT_FALSE(log.empty()) << test.command;
      EXPECT_EQ(log.back(), "shown " + test.window->caption()) << test.command;
      EXPECT_EQ(t.APrecio.tipo, test.tipo) << test.command;
      test.window->Hide();
    }
  }
  std::ptrdiff_t offered = std::ssize(mdi.keys);
  for (const auto& menu : mdi.menu) {
    offered +=
        std::ranges::count_if(menu.items, [](const auto& item) { return bool(item.action); });
  }
  EXPECT_EQ(items, offered) << "some item isn't tried";
  for (const auto& tool : mdi.ActiveBar1.tools) EXPECT_TRUE(tools.contains(tool.number));
  log.clear();
  for (const int number : {0, -1, 2, 100, 100000}) PressTool(number);
  EXPECT_TRUE(log.empty());
}

TEST_F(CommandsTest, EachPageOfTheBrowserHasItsWays) {
  using Pagina = services::Browser::Pagina;
  const std::tuple<Pagina, const char*, int> cases[] = {{Pagina::inicio, "Internet", 4},
                                                        {Pagina::servicio, "Cotirama", 5},
                                                        {Pagina::manual, "Manual", 0},
                                                        {Pagina::foro, "Sugerencias", 99}};
  auto& browser = terminal->Browser;
  for (const auto& [page, item, tool] : cases) {
    browser.Abrir(page);
    const std::string address = browser.brwWebBrowser.address();
    EXPECT_FALSE(address.empty()) << item;
    for (const bool by_tool : {false, true}) {
      if (by_tool && tool == 0) continue;
      browser.brwWebBrowser.Navigate("http://otra.invalid/");
      by_tool ? PressTool(tool) : Pick(item, "Internet");
      EXPECT_EQ(browser.brwWebBrowser.address(), address) << item << by_tool;
    }
  }
}

TEST_F(CommandsTest, TheSheetIsLinkedByItemAndToolAndAfterADeactivationByTheToolAlone) {
  auto& sheet = outside.spreadsheet();
  auto& excel = terminal->Excel;
  const auto item = [this] { Pick("Activar Cotirama Excel"); };
  const auto tool = [this] { PressTool(78); };
  struct Case {
    std::function<void()> activate;
    std::int16_t off_before, busy;
    bool linked;
  };
  const Case cases[] = {{item, 0, 0, true},  {tool, 0, 0, true},  {item, -1, 0, false},
                        {tool, -1, 0, true}, {item, 0, 1, false}, {tool, 0, 1, false}};
  sheet.running = true;
  for (const Case& test : cases) {
    for (const bool by_tool : {false, true}) {
      excel.ExcelApp = false;
      excel.ExcelOff = test.off_before;
      excel.ExcelBusy = test.busy;
      test.activate();
      sheet.Answer();
      const auto number = &test - cases;
      EXPECT_EQ(excel.ExcelApp, test.linked) << number;
      EXPECT_EQ(excel.ExcelOff, test.linked ? 0 : test.off_before) << number;
      by_tool ? PressTool(79) : Pick("Deshactivar Cotirama Excel");
      EXPECT_EQ(excel.ExcelOff, -1) << number;
      EXPECT_EQ(excel.ExcelBusy, 0) << number;
    }
  }
}

TEST_F(CommandsTest, OptionsAreAskedForInOneWriteAndOnlyInASession) {
  Pick("Opciones MEFF");
  EXPECT_TRUE(outside.boxes.prompts.empty());

  LogIn();
  const auto sends = [this](const char* typed, bool by_tool) {
    outside.boxes.line = typed;
    feed().writes.clear();
    by_tool ? PressTool(66) : Pick("Opciones MEFF");
    EXPECT_EQ(outside.boxes.prompts.back(), "Codigo de Opcion, Ejemplo: FIE,TEF,ELE...");
    EXPECT_EQ(terminal->Opciones.visible(), by_tool);
    terminal->Opciones.Hide();
    return feed().writes;
  };
  using Writes = std::vector<std::string>;
  EXPECT_EQ(sends("  teñ ", false), Writes{"INIMER:.Cte\xF1\xFF\xFEINIMER:.Pte\xF1\xFF\xFE"});
  EXPECT_EQ(sends("  teñ ", true), Writes{"INIMER:.CTE\xD1\xFF\xFEINIMER:.PTE\xD1\xFF\xFE"});
  EXPECT_EQ(sends("", true), Writes{"INIMER:.C\xFF\xFEINIMER:.P\xFF\xFE"});

  // The session goes while the user types.
  outside.boxes.while_open = [this] { feed().PeerClose(); };
  EXPECT_EQ(sends("FIE", false), Writes{});
}

TEST_F(CommandsTest, TheRefreshPeriodIsTakenAsEachWayHoldsIt) {
  constexpr int kOld = 60000;
  const std::tuple<const char*, int, int> cases[] = {
      {"", 10000, 10000},       {"9.999", 10000, 10000},  {" 12.5 s", 12500, 12500},
      {"12,5", 12000, 12000},   {"32.767", 32767, 32767}, {"32.768", 32768, 10000},
      {"65.535", 65535, 10000}, {"65.536", kOld, 10000},  {"-1", kOld, 10000},
      {"2147484", kOld, 10000}, {"1e999", kOld, 10000},
  };
  auto& timer = terminal->Conecta.Timer2;
  for (const auto& [typed, by_menu, by_tool] : cases) {
    outside.boxes.line = typed;
    timer.set_interval(kOld);
    Pick("Definir Tiempo de Refresco");
    EXPECT_EQ(timer.interval(), by_menu) << "menu " << typed;
    timer.set_interval(kOld);
    PressTool(52);
    EXPECT_EQ(timer.interval(), by_tool) << "tool " << typed;
  }
  EXPECT_EQ(outside.boxes.prompts.back(), "Enter Periodo en segundos");
  EXPECT_TRUE(timer.enabled());
  for (const int value : {1, 0}) {
    terminal->MDI.Check1.set_value(value);
    EXPECT_EQ(timer.enabled(), value == 1);
  }
}

TEST_F(CommandsTest, NoneRunsOnceTheProgramEnds) {
  LogIn();
  terminal->MDI.UserClose();
  const auto log = outside.desktop().log;
  for (const auto& menu : terminal->MDI.menu) {
    for (const auto& item : menu.items) {
      if (item.action) item.action();
    }
  }
  for (const auto& item : terminal->MDI.keys) item.action();
  for (const auto& tool : terminal->MDI.ActiveBar1.tools) terminal->MDI.ActiveBar1.Click(tool);
  for (auto* button : {&terminal->MDI.Command1, &terminal->MDI.Command2}) button->Click();
  terminal->MDI.Label1.Click();
  terminal->MDI.Combo1.DoubleClick();
  terminal->MDI.Picture2.Click();
  terminal->MDI.Check1.set_value(1);
  EXPECT_EQ(outside.desktop().log, log);
  EXPECT_TRUE(outside.boxes.prompts.empty());
  EXPECT_TRUE(outside.boxes.questions.empty());
  EXPECT_FALSE(terminal->Conecta.Timer2.enabled());
}

}  // namespace

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

  void Pick(std::string_view caption) {
    for (const auto& menu : terminal->MDI.menu) {
      for (const auto& item : menu.items) {
        if (Plain(item.caption) == caption) return item.action();
      }
    }
    ADD_FAILURE() << "no menu item " << caption;
  }

  [[nodiscard]] const std::string& last_log() { return outside.desktop().log.back(); }
};

TEST_F(CommandsTest, MenusAndToolBarOfferWhatExistsInItsOrder) {
  std::string menus, tools;
  for (const auto& menu : terminal->MDI.menu) {
    menus += menu.caption + ":";
    for (const auto& item : menu.items) {
      menus += item.caption.empty() ? " -" : " [" + Plain(item.caption) + "]";
    }
    menus += "\n";
  }
  for (const auto& tool : terminal->MDI.ActiveBar1.tools) {
    tools += tool.number == 0 ? "-\n" : std::to_string(tool.number) + " " + tool.tip + "\n";
  }
  EXPECT_EQ(menus,
            "&Instrumentos: [Mercado Continuo] - [Opciones MEFF]\n"
            "&Alarmas: [Alarma por Precio] [Alarma por Volumen] - [Ver Alarmas]\n"
            "&Carteras: [Negociaciones]\n"
            "&Meta Stock: [Definir Tiempo de Refresco]\n");
  EXPECT_EQ(tools,
            "24 Mercado Continuo\n66 Opciones MEFF\n-\n"
            "30 Alarma por Precio\n31 Alarma por Volumen\n32 Ver Alarmas\n-\n"
            "80 Negociaciones\n-\n52 Definir Tiempo de Refresco\n");
}

TEST_F(CommandsTest, NoTwoKeysOrMnemonicsOrSignsClash) {
  // Those of boards and panes come first.
  std::set<std::string> keys{"", "Ctrl+S", "Ctrl+C", "Ctrl+P", "Ctrl+G", "Ctrl+O", "F1", "F6"};
  std::set<char> bar{Mnemonic(terminal->MDI.Check1.caption()),
                     Mnemonic(terminal->MDI.Check2.caption())};
  for (const auto& menu : terminal->MDI.menu) {
    EXPECT_TRUE(bar.insert(Mnemonic(menu.caption)).second) << menu.caption;
    std::set<char> mnemonics{'\0'};
    for (const auto& item : menu.items) {
      if (item.caption.empty()) continue;
      EXPECT_TRUE(mnemonics.insert(Mnemonic(item.caption)).second) << item.caption;
      EXPECT_TRUE(keys.insert(item.key).second) << item.key;
    }
  }
  std::set<platform::Icon> icons{platform::Icon::none};
  for (const auto& tool : terminal->MDI.ActiveBar1.tools) {
    EXPECT_TRUE(tool.number == 0 || icons.insert(tool.icon).second) << tool.tip;
  }
}

TEST_F(CommandsTest, EveryWayOfACommandOpensItsWindow) {
  auto& t = *terminal;
  struct Case {
    const char* command;
    int tool;
    platform::Button* button;
    platform::Window* window;
    int tipo = 0;
  };
  for (const auto& [command, tool, button, window, tipo] :
       {Case{"Mercado Continuo", 24, &t.MDI.Command3, &t.Continuo},
        Case{"Alarma por Precio", 30, nullptr, &t.APrecio, 1},
        Case{"Alarma por Volumen", 31, nullptr, &t.APrecio, 4},
        Case{"Ver Alarmas", 32, &t.MDI.Command1, &t.ListAlarm},
        Case{"Negociaciones", 80, nullptr, &t.Form2}}) {
    const auto opens = [&](const char* way) {
      EXPECT_TRUE(window->visible()) << command << " by " << way;
      EXPECT_EQ(last_log(), "shown " + window->caption()) << command << " by " << way;
      EXPECT_EQ(t.APrecio.tipo, tipo) << command << " by " << way;
      window->Hide();
      t.APrecio.tipo = 0;
    };
    Pick(command);
    opens("menu");
    PressTool(tool);
    opens("tool");
    if (!button) continue;
    button->Click();
    opens("button");
  }
}

TEST_F(CommandsTest, AnUnknownToolDoesNothing) {
  const auto before = outside.desktop().log;
  for (const int number : {0, -1, 25, 100000}) PressTool(number);
  EXPECT_EQ(outside.desktop().log, before);
}

TEST_F(CommandsTest, OptionsAreAskedForInOneWriteAndOnlyInASession) {
  Pick("Opciones MEFF");
  PressTool(66);
  EXPECT_TRUE(outside.boxes.prompts.empty());

  LogIn();
  const auto sends = [this](const char* typed, bool by_tool) {
    outside.boxes.line = typed;
    const std::size_t before = feed().writes.size();
    by_tool ? PressTool(66) : Pick("Opciones MEFF");
    EXPECT_EQ(outside.boxes.prompts.back(), "Codigo de Opcion, Ejemplo: FIE,TEF,ELE...");
    return feed().writes.size() == before + 1 ? feed().writes.back() : "no single write";
  };
  EXPECT_EQ(sends("  teñ ", false), "INIMER:.Cte\xF1\xFF\xFEINIMER:.Pte\xF1\xFF\xFE");
  EXPECT_EQ(sends("  teñ ", true), "INIMER:.CTE\xD1\xFF\xFEINIMER:.PTE\xD1\xFF\xFE");
  EXPECT_EQ(sends("", true), "INIMER:.C\xFF\xFEINIMER:.P\xFF\xFE");

  // The session goes while the user types.
  outside.boxes.while_open = [this] { feed().PeerClose(); };
  EXPECT_EQ(sends("FIE", false), "no single write");
}

TEST_F(CommandsTest, TheRefreshPeriodIsTakenAsEachWayHoldsIt) {
  struct Case {
    const char* typed;
    int by_menu, by_tool;
  };
  constexpr int kOld = 60000;
  for (const auto& [typed, by_menu, by_tool] : {
           Case{"", 10000, 10000},
           Case{"abc", 10000, 10000},
           Case{"9.999", 10000, 10000},
           Case{" 12.5 s", 12500, 12500},
           Case{"12,5", 12000, 12000},
           Case{"32.767", 32767, 32767},
           Case{"32.768", 32768, 10000},
           Case{"65.535", 65535, 10000},
           Case{"65.536", kOld, 10000},
           Case{"-1", kOld, 10000},
           Case{"2147484", kOld, 10000},
           Case{"1e999", kOld, 10000},
       }) {
    outside.boxes.line = typed;
    auto& timer = terminal->Conecta.Timer2;
    timer.set_interval(kOld);
    Pick("Definir Tiempo de Refresco");
    EXPECT_EQ(timer.interval(), by_menu) << "menu " << typed;
    timer.set_interval(kOld);
    PressTool(52);
    EXPECT_EQ(timer.interval(), by_tool) << "tool " << typed;
    EXPECT_EQ(outside.boxes.prompts.back(), "Enter Periodo en segundos");
  }
}

TEST_F(CommandsTest, TheRefreshBoxStartsAndStopsItsTimer) {
  const auto agree = [this] {
    return terminal->Conecta.Timer2.enabled() == (terminal->MDI.Check1.value() == 1);
  };
  EXPECT_EQ(terminal->MDI.Check1.value(), 1);
  EXPECT_TRUE(agree());
  for (const int value : {0, 1}) {
    terminal->MDI.Check1.set_value(value);
    EXPECT_TRUE(agree());
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
  for (const auto& tool : terminal->MDI.ActiveBar1.tools) terminal->MDI.ActiveBar1.Click(tool);
  terminal->MDI.Command1.Click();
  terminal->MDI.Command3.Click();
  terminal->MDI.Picture2.Click();
  terminal->MDI.Check1.set_value(0);
  terminal->MDI.Check1.set_value(1);
  EXPECT_EQ(outside.desktop().log, log);
  EXPECT_TRUE(outside.boxes.prompts.empty());
  EXPECT_TRUE(outside.boxes.questions.empty());
  EXPECT_FALSE(terminal->Conecta.Timer2.enabled());
}

}  // namespace

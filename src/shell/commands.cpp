#include "shell/commands.h"

#include "shell/terminal.h"

namespace shell {

void JoinCommands(Terminal& terminal) {
  const auto board = [&terminal] { terminal.Continuo.Show(); };

  terminal.MDI.menu = {
      {"&Instrumentos", {}, {{"Mercado &Continuo", board, {}}}},
  };
  terminal.MDI.Command3.on_click = board;
}

}  // namespace shell

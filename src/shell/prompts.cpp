#include "shell/prompts.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "base/ansi.h"
#include "base/text.h"
#include "base/val.h"
#include "feed/frame.h"
#include "shell/terminal.h"

namespace shell {
namespace {

constexpr int kLeastTyped = 20, kLeastPeriod = 10000;  // ms

std::string Preguntar(Terminal& terminal, std::string_view text) {
  return terminal.platform().dialogs().Input(text);
}

/// Milliseconds asked for, unless Int can't hold them.
template <typename Int>
std::optional<Int> PreguntarPeriodo(Terminal& terminal) {
  const auto seconds = base::Val(Preguntar(terminal, "Enter Periodo en segundos"));
  return seconds ? base::ToInteger<Int>(*seconds * 1000) : std::nullopt;
}

void SetPeriod(Terminal& terminal, std::optional<int> ms) {
  platform::Timer& timer = terminal.Conecta.Timer2;
  if (ms) timer.set_interval(*ms);
  if (timer.interval() < kLeastPeriod) timer.set_interval(kLeastPeriod);
}

}  // namespace

void PedirOpciones(Terminal& terminal, bool capitals) {
  if (!terminal.Conecta.conectado()) return;
  const std::string answer = Preguntar(terminal, "Codigo de Opcion, Ejemplo: FIE,TEF,ELE...");
  std::string code = base::Utf8ToAnsi(base::Trim(answer));
  // What ends a message can't stand in one.
  std::erase_if(code, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\xFF'; });
  if (capitals) code = base::UpperAnsi(code);
  std::string messages = "INIMER:.C" + code;
  messages.append(feed::kTerminador).append("INIMER:.P").append(code);
  (void)terminal.Conecta.EnviarTexto(messages);
  if (capitals && terminal.MDI.FaseCierre == 0) terminal.Opciones.Show();
}

void PedirPeriodo(Terminal& terminal) {
  SetPeriod(terminal, PreguntarPeriodo<std::int32_t>(terminal));
}

void PedirPeriodoCorto(Terminal& terminal) {
  const int ms = PreguntarPeriodo<std::int16_t>(terminal).value_or(0);
  SetPeriod(terminal, std::max(ms, kLeastTyped));
}

}  // namespace shell

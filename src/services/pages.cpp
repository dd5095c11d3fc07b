#include "services/pages.h"

#include "base/ansi.h"
#include "base/text.h"

namespace services {
namespace {

constexpr std::string_view kTerminador = "\xFF\xFE";
constexpr std::string_view kPrimera = "1";
constexpr int kMasLarga = 60;  // letters; servers don't answer to messages that never end

/// Bytes to stand inside of a message. A lone first half of the terminator may, even as the last
/// one, since the terminator is found from the left.
std::string Contenido(std::string_view utf8) {
  std::string bytes = base::OneLine(base::Utf8ToAnsi(utf8));
  for (std::size_t at = 0; (at = bytes.find(kTerminador, at)) != std::string::npos;) {
    bytes.replace(at, kTerminador.size(), kTerminador.size(), ' ');
  }
  return bytes;
}

}  // namespace

Pages::Pages(platform::Platform& platform) : Window(platform) {
  set_caption("Páginas de Información");
  Command1.set_caption("&Indice");
  Command2.set_caption("&Futures");
  Command3.set_caption("F&echas");
  Command4.set_caption("&Opciones");
  Command5.set_caption("&Salir");
  Text1.set_label("Página");
  Text1.set_max_length(kMasLarga);
  for (platform::Button* button : {&Command1, &Command2, &Command3, &Command4}) {
    button->on_click = [this] { Command1_Click(); };
  }
  Command5.on_click = [this] { Command5_Click(); };
  Text1.on_enter = [this] { Text1_KeyPress(); };
}

void Pages::PaginaLista(std::string_view page) {
  Load();
  Text1.set_text("");
  Label1.set_caption(page);
}

void Pages::Command1_Click() { Pedir(kPrimera); }

void Pages::Command5_Click() {
  Pedir(kPrimera);
  Hide();
}

void Pages::Text1_KeyPress() { Pedir(Text1.text()); }

void Pages::Pedir(std::string_view page) {
  if (!Conectado()) return;
  const std::string id = steps.IdSesion();
  std::string request = "TRZO:" + id + ":" + id;
  request.append(kTerminador).append("Msg:").append(id).append("   :PAGS:");
  steps.EnviarTexto(request.append(Contenido(page)));
}

}  // namespace services

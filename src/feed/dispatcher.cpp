#include "feed/dispatcher.h"

#include <algorithm>

#include "base/ansi.h"
#include "base/palette.h"
#include "base/text.h"
#include "base/val.h"

namespace feed {
namespace {

using base::Mid;

constexpr int kSpacing = 80;
constexpr std::size_t kMaxShown = 2000;  // bytes of a text that any control shows
constexpr std::size_t kMaxHost = 255;
constexpr int kPageLines = 25;
constexpr std::size_t kPageWidth = 80;

std::string Shown(std::string_view bytes) {
  return base::AnsiToUtf8(base::OneLine(bytes.substr(0, kMaxShown)));
}

// For a box, which keeps the lines of the text.
std::string Lines(std::string_view bytes) {
  std::string text(bytes.substr(0, kMaxShown));
  std::ranges::replace_if(
      text, [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\r' && c != '\n'; },
      ' ');
  return base::AnsiToUtf8(text);
}

bool IsHost(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c > ' ' && c < '\x7F'; });
}

std::string PaginaLineas(std::string_view page) {
  std::string text;
  for (std::size_t line = 0; line < kPageLines; ++line) {
    text += Shown(Mid(page, line * kPageWidth + 1, kPageWidth)) + "\r\n";
  }
  return text;
}

}  // namespace

Dispatcher::Dispatcher(SessionState& session, const store::InstrumentStore& store,
                       platform::Ticker& tape, Zip& zip)
    : session_(session), store_(store), tape_(tape), zip_(zip) {}

// The order decides what a message is.
void Dispatcher::Procesar(std::string_view message) {
  if (message == "0000" || message == "0003") return SesionConfirmada();
  if (Mid(message, 6) == "Productor no disponible") SinProductor(message);
  if (message.starts_with("Internet")) Internet(message);
  if (message.find("Pag") != std::string_view::npos) return Pagina(message);
  if (message.starts_with("Not:")) return Notificacion(message);
  if (message.starts_with("Msg")) return Mensaje(message);
  if (Mid(message, 4, 3) == "ALE") return Alerta(message);
  steps.Proces(message);
}

void Dispatcher::SesionConfirmada() {
  if (!Admitir()) return;
  session_.SesionLista = true;
  for (int i = 1; i <= store_.NumLibros(); ++i) {
    const std::string_view code = store_.Libros(i).Codigo.bytes();
    if (!steps.EnviarTexto(std::string("P:").append(code))) return;
  }
}

void Dispatcher::SinProductor(std::string_view message) {
  if (!Admitir()) return;
  steps.Aviso("El productor " + Shown(Mid(message, 1, 4)) +
              " no está conectado en la red. Las operaciones con este productor se han abortado.");
}

void Dispatcher::Internet(std::string_view message) {
  if (!Admitir()) return;
  std::string echo("TRZO:");
  echo.append(session_.IdSesion.bytes()).append(":").append(session_.IdSesion.bytes());
  steps.EnviarTexto(echo.append(message));
  const std::size_t colon = base::Find(message, ":");
  const std::string_view host = Mid(message, colon + 1, kMaxHost);
  if (colon > 0 && IsHost(host)) steps.Redirigir(host);
}

void Dispatcher::Pagina(std::string_view message) {
  if (!Admitir()) return;
  std::string page(Mid(message, 5));
  // What can't be expanded is shown as it came.
  (void)zip_.Expandir(page, page);
  steps.PaginaLista(PaginaLineas(page));
}

void Dispatcher::Notificacion(std::string_view message) {
  // One without its box would be lost for good, as a repeat is ignored.
  if (!Admitir() || !steps.AdmiteAviso() || !Notificaciones.Add(message)) return;
  steps.EnviarTexto(Mid(message, 1, 8));
  tape_.QuitarItem("Not");
  tape_.PonerTexto(Shown(Mid(message, 5)), "Not", base::palette::kLightYellow, kSpacing, "");
  steps.Pitido();
  steps.Pitido();
  steps.Aviso("Notificacion: " + Lines(Mid(message, 5)));
}

void Dispatcher::Mensaje(std::string_view message) {
  if (!Admitir()) return;
  if (message.find("Ok") != std::string_view::npos) return;
  std::string reply("RNET");
  reply.append(Mid(message, 7, 13)).append(":").append(Mid(message, 1, 6)).append("Ok");
  bool seen = false;
  bool sent = true;
  for (const std::string& text : MensajesVistos.texts()) {
    if (!message.starts_with(text)) continue;
    seen = true;
    // A full send buffer stays full until this event has ended.
    sent = sent && steps.EnviarTexto(reply);
  }
  if (seen) return;
  steps.EnviarTexto(reply);
  MensajesVistos.Add(message);
}

void Dispatcher::Alerta(std::string_view message) {
  if (!Admitir() || !Notificaciones.Add(message)) return;
  const std::string key = Shown(Mid(message, 1, 8));
  tape_.QuitarItem(key);
  const int color = base::ValInteger<int>(Mid(message, 7, 2)).value_or(-1);
  if (!base::IsPaletteNumber(color) || tape_.items().size() >= kMaxTape) return;
  tape_.PonerTexto(Shown(Mid(message, 10)), key, color, kSpacing, "");
}

}  // namespace feed

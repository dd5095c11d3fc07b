#include "services/irc.h"

#include <algorithm>

#include "base/text.h"

namespace services {
namespace {

constexpr int kMaxTexto = 400;
constexpr platform::Rect kSitio{1200, 900, 9300, 6300};
constexpr std::string_view kSinServidor = "No hay ningún servidor de chat configurado.";
constexpr std::string_view kEspere =
    "Todavía no se ha entrado en el chat: el texto se queda en su línea.";
constexpr std::string_view kSinEnviar = "El texto no se ha podido enviar.";
constexpr std::string_view kOtraVez =
    " Para entrar otra vez, cierre esta ventana y vuelva a abrirla.";

}  // namespace

Irc::Irc(platform::Platform& platform)
    : Window(platform),
      Irc1(platform, {.ready =
                          [this] {
                            Estado.set_caption("Entrando en el canal " + std::string(kCanal) + "…");
                            Irc1.Join(kCanal);
                          },
                      .joined = [this] { Irc1_Joined(); },
                      .names = [this](const auto& people) { Irc1_Names(people); },
                      .message =
                          [this](std::string_view sender, std::string_view text) {
                            T.AddLine("<" + std::string(sender) + ">" + std::string(text));
                          },
                      .action =
                          [this](std::string_view sender, std::string_view text) {
                            T.AddLine("* " + std::string(sender) + " " + std::string(text));
                          },
                      .refused = [this](std::string_view why) { Irc1_Ended(why); },
                      .ended = [this](std::string_view why) { Irc1_Ended(why); }}) {
  set_caption("Irc Chat");
  set_rect(kSitio);
  C.set_label("Mensaje");
  C.set_max_length(kMaxTexto);
  C.on_enter = [this] { C_KeyPress(); };
}

void Irc::OnLoad() {
  const bool hay = !servidor.host.empty();
  C.set_enabled(hay);
  esperando_ = hay;
  Estado.set_caption(hay ? "Conectando con el chat, " + servidor.host + "…"
                         : std::string(kSinServidor));
  if (!hay) return;
  pedido_ = steps.Usuario ? steps.Usuario() : "";
  Irc1.Connect(servidor, pedido_, steps.Clave ? steps.Clave() : "");
}

void Irc::OnUnload() {
  Irc1.Quit();
  L.Clear();
}

void Irc::OnActivate() {
  if (C.enabled()) SetFocus(C);
}

void Irc::C_KeyPress() {
  if (base::Trim(C.text()).empty()) return;
  if (!Irc1.in_channel()) {
    if (esperando_) Estado.set_caption(kEspere);
    return;
  }
  if (!Irc1.Say(C.text(), kCanal)) return Estado.set_caption(kSinEnviar);
  T.AddLine(C.text());
  C.set_text("");
  Estado.set_caption(Nota());
}

void Irc::Irc1_Joined() {
  esperando_ = false;
  Estado.set_caption(Nota());
}

std::string Irc::Nota() const {
  const std::string apodo = IrcShown(Irc1.nick());
  return apodo == pedido_ ? "" : "Su apodo en el chat es " + apodo + ".";
}

void Irc::Irc1_Names(const std::vector<std::string>& people) {
  if (people == L.items()) return;
  const int before = L.list_index();
  const std::string chosen = before < 0 ? "" : L.items()[static_cast<std::size_t>(before)];
  L.Clear();
  for (const std::string& name : people) L.AddItem(name);
  const auto again = std::ranges::find(people, chosen);
  if (again != people.end()) L.set_list_index(static_cast<int>(again - people.begin()));
}

void Irc::Irc1_Ended(std::string_view why) {
  if (Irc1.in_channel()) return Estado.set_caption(why);
  esperando_ = false;
  L.Clear();
  Estado.set_caption(std::string(why).append(kOtraVez));
}

}  // namespace services

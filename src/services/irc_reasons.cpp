#include "services/irc_reasons.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace services {
namespace {

constexpr std::size_t kMaxShown = 200;

struct Reason {
  std::string_view number, text;
};

constexpr std::array kReasons{
    Reason{"403", "El canal no existe en este servidor."},
    Reason{"404", "El canal no ha admitido el mensaje."},
    Reason{"405", "El servidor no permite entrar en más canales."},
    Reason{"437", "El canal no está disponible por ahora."},
    Reason{"463", "El servidor no admite conexiones desde este equipo."},
    Reason{"464", "El servidor no admite la contraseña."},
    Reason{"465", "El servidor no admite a este usuario."},
    Reason{"471", "El canal está lleno."},
    Reason{"473", "En el canal sólo se entra con invitación."},
    Reason{"474", "El canal no admite a este usuario."},
    Reason{"475", "El canal pide una clave."},
    Reason{"477", "El canal sólo admite apodos registrados."},
};

}  // namespace

std::string IrcReason(const IrcMessage& refusal) {
  const auto known = std::ranges::find(kReasons, refusal.command, &Reason::number);
  return known != kReasons.end() ? std::string(known->text)
                                 : IrcReason("El servidor no lo permite", refusal.last());
}

std::string IrcReason(std::string_view what, std::string_view server_text) {
  const std::string shown = IrcShown(server_text);
  const std::string_view text = base::Trim(base::CutUtf8(shown, kMaxShown));
  std::string reason(what);
  if (!text.empty()) reason.append(": ").append(text);
  if (std::string_view(".?!").find(reason.back()) == std::string_view::npos) reason += '.';
  return reason;
}

}  // namespace services

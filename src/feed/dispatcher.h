#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "feed/session_state.h"
#include "feed/text_memory.h"
#include "feed/zip.h"
#include "platform/ticker.h"
#include "store/instrument_store.h"

namespace feed {

/// Tells the server's control messages apart, by texts at fixed places and in a fixed order, and
/// hands all else to the market decoder. Any bytes are fine. Writes the market ticker. All steps
/// are filled in before the first message; what the constructor takes outlives the dispatcher.
class Dispatcher {
 public:
  struct Steps {
    std::function<bool(std::string_view text)> EnviarTexto;  // false when it didn't go out
    std::function<void(std::string_view message)> Proces;
    std::function<void(std::string_view host)> Redirigir;    // a checked host name
    std::function<void(std::string_view text)> PaginaLista;  // 25 lines, each ended by CR LF
    std::function<bool()> AdmiteAviso;                       // whether a box may open
    std::function<void(std::string_view text)> Aviso;        // a modal box
    std::function<void()> Pitido;
  };

  Dispatcher(SessionState& session, const store::InstrumentStore& store, platform::Ticker& tape,
             Zip& zip);

  Steps steps;

  void Procesar(std::string_view message);
  /// A data event begins. One event acts on a thousand control messages; more, which only a chain
  /// made to keep the program busy can bring, are dropped.
  void Renovar() { left_ = kPerEvent; }

 private:
  static constexpr int kPerEvent = 1000;
  static constexpr std::size_t kMaxNotificaciones = 10000;
  static constexpr std::size_t kMaxMensajes = 1000;
  static constexpr std::size_t kMaxTape = 400;  // items on the tape that let an alert join them

  [[nodiscard]] bool Admitir() { return left_ > 0 && left_-- > 0; }
  void SesionConfirmada();
  void SinProductor(std::string_view message);
  void Internet(std::string_view message);
  void Pagina(std::string_view message);
  void Notificacion(std::string_view message);
  void Mensaje(std::string_view message);
  void Alerta(std::string_view message);

  SessionState& session_;
  const store::InstrumentStore& store_;
  platform::Ticker& tape_;
  Zip& zip_;
  TextMemory Notificaciones{kMaxNotificaciones};
  TextMemory MensajesVistos{kMaxMensajes};
  int left_ = kPerEvent;
};

}  // namespace feed

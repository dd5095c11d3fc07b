#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/program_dir.h"
#include "feed/dispatcher.h"
#include "feed/frame_codec.h"
#include "feed/market_decoder.h"
#include "feed/read_slice.h"
#include "feed/session_boxes.h"
#include "feed/session_state.h"
#include "feed/strip.h"
#include "feed/zip.h"
#include "platform/controls.h"
#include "platform/timer.h"
#include "platform/window.h"
#include "store/instrument_store.h"
#include "store/update_pipeline.h"

namespace feed {

/// Login window and owner of the two sockets: brings the session up, keeps it alive and feeds what
/// arrives to codec, dispatcher and decoder. Stays loaded, mostly hidden, until the program ends.
/// Reads and writes "IP.cfg", readable by its owner only. Failing socket calls are ignored: the
/// timer tries again. What the constructor takes outlives the window.
class Conecta : public platform::Window {
 public:
  /// Stands for the embedded market in place of a host name.
  static constexpr std::string_view kServidorPropio = "demostracion";
  static constexpr std::uint16_t kDataPort = 1999;  // of any server's history

  /// What other parts do at their moment; all optional.
  struct Steps {
    // Every 5 seconds, in this order, the first two only while connected.
    std::function<void()> RefreshMetaStock, ReanudarDescarga, ResumenCartera;
    std::function<void(std::string_view text)> PaginaLista;      // an information page of 25 lines
    std::function<void(int index)> RefrescarLibro;               // a book has been stored
    std::function<void(const store::Negocio& negocio)> Negocio;  // every trade that has come
    std::function<void()> FinNegocios;                           // after the last one of a batch
    // Events of `tcpData`.
    std::function<void()> DatosConectados, OnDataArrival, OnDataClose, DatosFallidos;
  };

  Conecta(platform::Platform& platform, const base::ProgramDir& directory,
          store::InstrumentStore& store, store::UpdatePipeline& pipeline, Strip strip);

  platform::TextBox Text1, Text2, Text3;  // login, password, server
  platform::Button Command1, Command2;    // minimise, connect
  platform::Timer Timer1;                 // watchdog; on from the first connection
  platform::Timer Timer2;
  const std::unique_ptr<platform::Socket> tcpData;  // history downloads
  Steps steps;
  bool TickCarteras = false;  // a period of Timer2 has passed; its reader clears it

  void Command1_Click();
  void Command2_Click();
  void Timer1_Timer();
  void Timer2_Timer();
  void tcpClient_Connect();
  void tcpClient_DataArrival();
  void tcpClient_Close();
  void tcpClient_Error(const std::string& text);

  /// Sends one message with its terminator. False when it doesn't go out.
  bool EnviarTexto(std::string_view text);
  [[nodiscard]] bool conectado() const { return tcpClient->state() == Estado::connected; }
  [[nodiscard]] bool cerrado() const { return tcpClient->state() == Estado::closed; }

  /// Asks the user for a line, in a box that holds up the session's timers. "" when he gives up.
  std::string Preguntar(std::string_view text);

  /// Ends the session and loads the window anew, hidden.
  void Recargar();
  /// The program ends: nothing connects, ticks or asks any more, and the window may be unloaded.
  void Cerrar();

  [[nodiscard]] bool SesionLista() const { return session_.SesionLista; }
  /// 12 bytes, blank padded.
  [[nodiscard]] std::string IdSesion() const { return std::string(session_.IdSesion.bytes()); }
  /// As typed at the login, 7 characters at most.
  [[nodiscard]] std::string Usuario() const { return session_.Usuario.trimmed_utf8(); }
  [[nodiscard]] std::string Clave() const { return session_.Clave.trimmed_utf8(); }
  /// Bytes read since program start.
  [[nodiscard]] std::int32_t BytesTransferidos() const { return bytes_transferidos_; }
  [[nodiscard]] const MarketDecoder& decoder() const { return decoder_; }

 protected:
  void OnLoad() override { Cargar(); }
  bool OnQueryUnload() override;

 private:
  using Estado = platform::Socket::State;

  void PrepararControles();
  void UnirPasos();
  void Cargar();
  void LeerFichero();
  void CerrarSockets();
  void PedirSesion();
  void ContarBytes(std::size_t count);
  void Redirigir(std::string_view host);
  void SeguirRedireccion();

  const base::ProgramDir& directory_;
  Strip strip_;
  SessionState session_;
  SessionBoxes boxes_;
  Zip zip_;
  FrameCodec codec_;
  Dispatcher dispatcher_;
  MarketDecoder decoder_;
  ReadSlicer slicer_;
  std::unique_ptr<platform::Socket> tcpClient;  // market feed
  std::shared_ptr<std::string> redirect_;       // host to go to once the handler has ended, or ""
  std::int32_t bytes_transferidos_ = 0;
  std::int16_t contador_silencio_ = 0;  // ticks of Timer1 since the last read
  bool terminado_ = false;
};

}  // namespace feed

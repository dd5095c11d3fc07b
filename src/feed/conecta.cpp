#include "feed/conecta.h"

#include <limits>
#include <utility>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/record_file.h"
#include "base/text.h"
#include "base/val.h"
#include "feed/frame.h"

namespace feed {
namespace {

using platform::Picture;

constexpr const char* kFichero = "IP.cfg";
constexpr std::size_t kCampo = 15;
constexpr std::uint16_t kFeedPort = 23;
constexpr std::int16_t kMaxSilencio = 20;
constexpr int kSpacing = 80;

std::string FieldText(std::string_view record) {
  const std::size_t last = record.find_last_not_of(std::string_view(" \0", 2));
  return base::AnsiToUtf8(base::OneLine(record.substr(0, last + 1)));
}

void Run(const std::function<void()>& step) {
  if (step) step();
}

}  // namespace

Conecta::Conecta(platform::Platform& platform, const base::ProgramDir& directory,
                 store::InstrumentStore& store, store::UpdatePipeline& pipeline, Strip strip)
    : Window(platform),
      Timer1(platform, 5000, false),
      Timer2(platform, 60000, false),
      tcpData(platform.MakeSocket({
          .connected = [this] { Run(steps.DatosConectados); },
          .data = [this] { Run(steps.OnDataArrival); },
          .closed = [this] { Run(steps.OnDataClose); },
          .error = [this](const std::string&) { Run(steps.DatosFallidos); },
      })),
      directory_(directory),
      strip_(strip),
      boxes_(platform.dialogs()),
      codec_(zip_),
      dispatcher_(session_, store, strip.Tickctl1, zip_),
      decoder_(store, pipeline, strip),
      tcpClient(platform.MakeSocket({
          .connected = [this] { tcpClient_Connect(); },
          .data = [this] { tcpClient_DataArrival(); },
          .closed = [this] { tcpClient_Close(); },
          .error = [this](const std::string& text) { tcpClient_Error(text); },
      })),
      redirect_(std::make_shared<std::string>()) {
  set_caption("Conecta");
  PrepararControles();
  UnirPasos();
}

void Conecta::PrepararControles() {
  Text1.set_label("LOGIN");
  Text1.set_max_length(7);
  Text2.set_label("PASSWORD");
  Text2.set_max_length(7);
  Text2.set_password(true);
  Text3.set_label("IP");
  Command1.set_caption("_");
  Command1.set_tool_tip("Minimizar");
  Command2.set_caption("Conectar");

  Text1.on_change = [this] { session_.Usuario = session_.Usuario.FromUtf8(Text1.text()); };
  Text2.on_change = [this] { session_.Clave = session_.Clave.FromUtf8(Text2.text()); };
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
  Timer1.on_tick = [this] { Timer1_Timer(); };
  Timer2.on_tick = [this] { Timer2_Timer(); };
}

void Conecta::UnirPasos() {
  codec_.steps = {
      // A read that waited in a box may have outlasted the session.
      .Procesar =
          [this](std::string_view message) {
            if (!terminado_) dispatcher_.Procesar(message);
          },
      .QuedaTexto = [this] { strip_.Picture2.set_picture(Picture::connected); },
  };
  dispatcher_.steps = {
      .EnviarTexto = [this](std::string_view text) { return EnviarTexto(text); },
      .Proces = [this](std::string_view message) { decoder_.Proces(message); },
      .Redirigir = [this](std::string_view host) { Redirigir(host); },
      .PaginaLista =
          [this](std::string_view text) {
            if (steps.PaginaLista) steps.PaginaLista(text);
          },
      .AdmiteAviso = [this] { return boxes_.allowed(); },
      .Aviso = [this](std::string_view text) { boxes_.Message(text); },
      .Pitido = [this] { platform().sound().Beep(); },
  };
  decoder_.steps = {
      .EnviarTexto = [this](std::string_view text) { return EnviarTexto(text); },
      .RefrescarLibro =
          [this](int index) {
            if (steps.RefrescarLibro) steps.RefrescarLibro(index);
          },
      .Negocio =
          [this](const store::Negocio& negocio) {
            if (steps.Negocio) steps.Negocio(negocio);
          },
      .FinNegocios = [this] { Run(steps.FinNegocios); },
      .SesionPerdida = [this] { session_.SesionLista = false; },
  };
}

void Conecta::Cargar() {
  tcpClient->set_remote_host(kServidorPropio);
  tcpClient->set_remote_port(kFeedPort);
  tcpData->set_remote_port(kDataPort);
  Timer2.set_interval(60000);
  Timer2.set_enabled(true);
  Hide();
  LeerFichero();
}

void Conecta::LeerFichero() {
  const base::RecordFile file(directory_.Path(kFichero), kCampo, true);
  std::int64_t n = 0;
  for (platform::TextBox* field : {&Text3, &Text1, &Text2}) {
    std::string record;
    (void)file.Read(++n, record);
    field->set_text(FieldText(record));
  }
}

bool Conecta::OnQueryUnload() {
  // The user closes the login window; the session goes on.
  if (!terminado_) Hide();
  return terminado_;
}

void Conecta::Command1_Click() { set_state(State::minimized); }

void Conecta::Command2_Click() {
  if (terminado_) return;
  std::string records;
  for (const platform::TextBox* field : {&Text3, &Text1, &Text2}) {
    records += base::FixedText<kCampo>::FromUtf8(field->text()).bytes();
  }
  (void)base::ReplaceFile(directory_.Path(kFichero), records, true);
  if (base::CountUtf8(base::Trim(Text3.text())) < 5) Text3.set_text(kServidorPropio);
  tcpClient->set_remote_host(base::Trim(Text3.text()));
  const bool complete = base::CountUtf8(Text1.text()) > 3 && base::CountUtf8(Text2.text()) > 3;
  if (!complete || !cerrado()) return;
  tcpClient->Connect();
  Hide();
}

void Conecta::tcpClient_Connect() {
  slicer_ = {};
  std::string id(session_.Usuario.trimmed());
  session_.IdSesion.assign(id.append(session_.Clave.trimmed()));
  session_.Usuario.assign(std::string(session_.Usuario.trimmed()));
  session_.Clave.assign(std::string(session_.Clave.trimmed()));
  Timer1.set_enabled(true);

  std::string login("ID:");
  login.append(session_.Usuario.bytes()).append(".").append(session_.Clave.bytes());
  // One write: the second message brings its own terminator.
  EnviarTexto(login.append(kTerminador).append("C:Brizna.Continuo"));
  strip_.Picture2.set_picture(Picture::connected);
  strip_.Tickctl2.QuitarItem("");
  strip_.Tickctl2.PonerTexto("Conectado ", "", base::palette::kWhite, kSpacing, "");
  strip_.Tickctl2.PonerPicture(Picture::server, "", "");
  strip_.Tickctl2.PonerTexto("Cotirama Data Server.", "", base::palette::kWhite, kSpacing, "");
  if (tcpData->state() == Estado::closed) tcpData->set_remote_host(tcpClient->remote_host());
}

void Conecta::tcpClient_DataArrival() {
  boxes_.Renovar();
  dispatcher_.Renovar();
  strip_.Picture2.set_picture(Picture::receiving);
  strip_.Label2.set_back(base::palette::kRed);
  contador_silencio_ = 0;
  std::string recibido = tcpClient->Read(slicer_.Next(codec_.ColaTramas(), tcpClient->pending()));
  ContarBytes(recibido.size());
  codec_.Recibir(std::move(recibido));
  if (redirect_->empty()) return;
  // Not inside the read handler, nor in a box that it waits for, nor once the window is gone.
  platform().Post([this, alive = std::weak_ptr(redirect_)] {
    if (!alive.expired()) SeguirRedireccion();
  });
}

void Conecta::ContarBytes(std::size_t count) {
  const auto room = std::numeric_limits<std::int32_t>::max() - bytes_transferidos_;
  if (count <= static_cast<std::size_t>(room)) bytes_transferidos_ += static_cast<int>(count);
  std::string tip("Bytes transferidos: ");
  base::AppendNumberText(tip, bytes_transferidos_);
  strip_.Picture2.set_tool_tip(tip);
}

void Conecta::tcpClient_Close() { strip_.Picture2.set_picture(Picture::closed); }

void Conecta::tcpClient_Error(const std::string& text) {
  boxes_.Renovar();
  tcpClient->Close();
  strip_.Picture2.set_picture(Picture::closed);
  boxes_.Message(base::OneLine(text));
}

void Conecta::Timer1_Timer() {
  if (boxes_.open()) return;
  boxes_.Renovar();
  if (cerrado()) tcpClient->Connect();
  if (contador_silencio_ > kMaxSilencio) {
    contador_silencio_ = 0;
    tcpClient->Close();
    tcpClient->Connect();
  }
  contador_silencio_ = base::CheckedIncrement(contador_silencio_);
  if (conectado()) {
    Run(steps.RefreshMetaStock);
    if (!SesionLista()) PedirSesion();
    Run(steps.ReanudarDescarga);
  }
  Run(steps.ResumenCartera);
}

void Conecta::Timer2_Timer() {
  if (!boxes_.open()) TickCarteras = true;
}

std::string Conecta::Preguntar(std::string_view text) {
  boxes_.Renovar();
  return terminado_ ? std::string() : boxes_.Input(text);
}

void Conecta::PedirSesion() {
  const std::string id(session_.IdSesion.bytes());
  EnviarTexto("TRZO:" + id + ":" + id);
}

bool Conecta::EnviarTexto(std::string_view text) {
  return !terminado_ && tcpClient->Send(std::string(text).append(kTerminador));
}

void Conecta::Redirigir(std::string_view host) {
  const std::string& current = redirect_->empty() ? tcpClient->remote_host() : *redirect_;
  // Nobody is sent from a real market to the simulated one.
  if (host != current && host != kServidorPropio) *redirect_ = host;
}

void Conecta::SeguirRedireccion() {
  if (redirect_->empty()) return;
  tcpClient->Close();
  tcpClient->set_remote_host(std::exchange(*redirect_, {}));
  tcpClient->Connect();
}

void Conecta::CerrarSockets() {
  redirect_->clear();
  Timer1.set_enabled(false);
  tcpClient->Close();
  tcpData->Close();
}

void Conecta::Recargar() {
  CerrarSockets();
  strip_.Picture2.set_picture(Picture::closed);
  Cargar();
}

void Conecta::Cerrar() {
  terminado_ = true;
  CerrarSockets();
  Timer2.set_enabled(false);
  boxes_.Silenciar();
}

}  // namespace feed

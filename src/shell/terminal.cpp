#include "shell/terminal.h"

#include <utility>

#include "alarms/evaluate.h"
#include "shell/commands.h"

namespace shell {

Terminal::Terminal(platform::Platform& platform, base::ProgramDir directory)
    : platform_(platform),
      directory_(std::move(directory)),
      MDI(platform),
      pipeline(store, MDI.Tickctl1, MDI.Check2),
      Conecta(platform, directory_, store, pipeline,
              {MDI.Picture2, MDI.Label2, MDI.LT, MDI.LF, MDI.Tickctl1, MDI.Tickctl2}),
      Continuo({platform, directory_, store, pipeline, ConfigVentana, MDI.FaseCierre}),
      Form2(platform, MDI.FaseCierre),
      Tickets(platform, store, pipeline, Form2),
      Alarmas(directory_),
      FormAlarm(platform, Alarmas, MDI.FaseCierre),
      ListAlarm(platform, MDI.FaseCierre),
      APrecio(platform, store, Alarmas, FormAlarm),
      Carteras(directory_, MDI.Combo1),
      TCartera({platform, directory_, store, pipeline, ConfigVentana, MDI.FaseCierre}, Carteras),
      Cartera(platform, Carteras),
      Operar_Cartera(platform, store, Carteras),
      Detalle(platform, Carteras),
      resumen_(MDI, store, Carteras, TCartera),
      stop_(*this) {
  JoinMainWindow();
  JoinPipeline();
  JoinCommands(*this);
}

Terminal::~Terminal() = default;

void Terminal::JoinMainWindow() {
  MDI.steps = {
      .Cargar = [this] { StartUp(*this, directory_); },
      .Conectado = [this] { return Conecta.conectado(); },
      .Cerrado = [this] { return Conecta.cerrado(); },
      .Conectar = [this] { ShowLogin(); },
      .Desconectar = [this] { Conecta.Recargar(); },
      .Refresco = [this](bool on) { Conecta.Timer2.set_enabled(on); },
      .Terminar = [this] { stop_.Begin(); },
      .Avanzar = [this] { stop_.Advance(); },
  };
}

void Terminal::JoinPipeline() {
  pipeline.steps.tickets = [this](std::int16_t slot) { Tickets.RefrescarTickets(slot); };
  pipeline.steps.alarmas = [this](std::int16_t slot) {
    alarms::EvaluarAlarmas(store.Instrumentos(slot), Alarmas, FormAlarm, ListAlarm);
  };
  pipeline.AbrirTicket = [this](std::int16_t slot) { Tickets.AbrirTicket(slot); };
  pipeline.views.Continuo_negoti = [this](std::int16_t slot) { Continuo.negoti(slot); };
  pipeline.views.Continuo_negotii = [this](std::int16_t slot) { Continuo.negotii(slot); };
  pipeline.steps.cartera = [this](std::int16_t slot) { TCartera.negoti(slot); };
  Conecta.steps.ResumenCartera = [this] { resumen_.Combo1_Click(); };
  MDI.Combo1.on_click = [this] { resumen_.Combo1_Click(); };
  Conecta.steps.RefrescarLibro = [this](int index) { Tickets.RefrescarLibro(index); };
  Conecta.steps.Negocio = [this](const store::Negocio& trade) { Tickets.Negocio(trade); };
  Conecta.steps.FinNegocios = [this] { Tickets.FinNegocios(); };
  Tickets.steps.EnviarTexto = [this](std::string_view text) { (void)Conecta.EnviarTexto(text); };
  FormAlarm.steps.VerLista = [this] { ListAlarm.Show(); };
  ListAlarm.steps.VerAlarmas = [this] { FormAlarm.Show(); };
}

void Terminal::Start() {
  MDI.Show();
  ShowLogin();
}

void Terminal::ShowLogin() {
  Conecta.Show();
  Conecta.SetFocus(Conecta.Text1);
}

}  // namespace shell

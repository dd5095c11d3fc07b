#include "shell/terminal.h"

#include <utility>

#include "shell/commands.h"

namespace shell {

Terminal::Terminal(platform::Platform& platform, base::ProgramDir directory)
    : platform_(platform),
      directory_(std::move(directory)),
      MDI(platform),
      pipeline(store, MDI.Tickctl1, MDI.Check2),
      Conecta(platform, directory_, store, pipeline,
              {MDI.Picture2, MDI.Label2, MDI.LT, MDI.LF, MDI.Tickctl1, MDI.Tickctl2}),
      Continuo({platform, directory_, store, pipeline, ConfigVentana, MDI.FaseCierre}) {
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
      .Terminar = [this] { Stop(); },
  };
}

void Terminal::JoinPipeline() {
  pipeline.views.Continuo_negoti = [this](std::int16_t slot) { Continuo.negoti(slot); };
  pipeline.views.Continuo_negotii = [this](std::int16_t slot) { Continuo.negotii(slot); };
}

void Terminal::Start() {
  MDI.Show();
  ShowLogin();
}

void Terminal::ShowLogin() {
  Conecta.Show();
  Conecta.SetFocus(Conecta.Text1);
}

void Terminal::Stop() {
  MDI.Tickctl1.set_scrolling(false);
  MDI.Tickctl2.set_scrolling(false);
  MDI.FaseCierre = 1;
  Conecta.Cerrar();
  Continuo.Timer1.set_enabled(false);
  platform_.windows.ForEach([this](platform::Window& window) {
    if (&window != &MDI) window.Unload();
  });
  MDI.Timer1.set_enabled(false);
  platform_.Post([this] {
    if (on_end) on_end();
  });
}

}  // namespace shell

#include "shell/start_up.h"

#include "shell/terminal.h"

namespace shell {
namespace {

using base::palette::kLightCyan;
using base::palette::kWhite;
using platform::Picture;

void SetUpTickers(MDI& mdi) {
  mdi.Tickctl2.PonerTexto("Pulse ", "", kWhite, 80, "");
  mdi.Tickctl2.PonerPicture(Picture::closed, "", "");
  mdi.Tickctl2.PonerTexto("para conectarse.", "", kWhite, 80, "");
  mdi.Tickctl2.set_scrolling(true);

  mdi.Tickctl1.PonerTexto(MDI::kCaption, "", kLightCyan, 30, "");
  mdi.Tickctl1.set_setup({.mode = 2, .interval = 50, .rest = 96, .step = 20, .pace = 100});
  mdi.Tickctl1.set_scrolling(true);
}

}  // namespace

void StartUp(Terminal& terminal, const base::ProgramDir& directory) {
  MDI& mdi = terminal.MDI;
  directory.MakeDirectory("Ticks");
  directory.EmptyDirectory("Ticks");
  mdi.Check2.set_value(0);
  terminal.Continuo.Load();
  terminal.Indices.Load();
  terminal.Futuros.Load();
  terminal.Divisas.Load();
  terminal.TCartera.Load();
  mdi.Picture2.set_picture(Picture::closed);
  terminal.Conecta.Load();
  SetUpTickers(mdi);
  terminal.ConfigVentana = views::LoadConfigVentana(directory);
  for (int ventana = 1; ventana <= 4; ++ventana) {
    const views::ConfigVentana& look = terminal.ConfigVentana[static_cast<std::size_t>(ventana)];
    for (views::GridView* view : terminal.ViewsOf(ventana)) views::ApplyLook(look, view->G);
  }
  terminal.Alarmas.CargarAlarmas();
  terminal.FormAlarm.Load();
  terminal.FormAlarm.Rellenar();
  terminal.Carteras.CargarCarteras();
  terminal.Meta.LeerRutas();
}

}  // namespace shell

#include "shell/mdi.h"

#include "base/val.h"

namespace shell {

using platform::Picture;

MDI::MDI(platform::Platform& platform) : Window(platform), Timer1(platform, 1000, false) {
  set_caption(kCaption);
  Picture1.set_visible(false);
  Picture2.set_tool_tip("Bytes transferidos: 0");
  Label2.set_caption("Instrumentos: 0");
  Label2.set_tool_tip("Muestra el Nº de instrumentos cargados");
  Label2.set_back(base::palette::kBlack);
  Label2.set_fore(base::palette::kBrightWhite);
  LT.set_tool_tip("Hora de sesión");
  LF.set_tool_tip("Fecha de sesión");
  Check1.set_caption("&Refresh");
  Check1.set_tool_tip("Generar refresco automático al MetaStock");
  Check1.set_visible(false);  // until the charting package has been found
  Check2.set_caption("&Ticker");
  Check2.set_tool_tip("Ocultar o visualizar el Ticker");
  Command1.set_tool_tip("Lista de alarmas");
  Command2.set_caption("Operar");
  Command2.set_tool_tip("Comprar o vender");
  Command3.set_tool_tip("Muestra el Mercado Continuo");
  Command4.set_tool_tip("Indices");
  Command5.set_tool_tip("Futuros");
  Command6.set_tool_tip("Divisas");
  Label1.set_caption("Carteras");
  Label1.set_tool_tip("Pulse aquí para ver sus carteras");
  Combo1.set_tool_tip("Carteras Disponibles");
  Text1.set_tool_tip("Valor Cartera");
  Text2.set_tool_tip("% Ganancia");
  Text3.set_tool_tip("Ganancia (Efectivo)");
  for (platform::TextBox* box : {&Text1, &Text2, &Text3}) box->set_locked(true);

  Timer1.on_tick = [this] { Timer1_Timer(); };
  Picture2.on_click = [this] { Picture2_Click(); };
  Check1.on_click = [this] { Check1_Click(); };
  Check2.on_click = [this] { Check2_Click(); };
}

void MDI::OnLoad() {
  Timer1.set_enabled(true);
  if (steps.Cargar) steps.Cargar();
}

bool MDI::OnQueryUnload() {
  if (FaseCierre == 0 && steps.Terminar) steps.Terminar();
  return false;
}

void MDI::OnResize() { Form_Resize(); }

void MDI::Timer1_Timer() {
  if (FaseCierre > 0) {
    FaseCierre = base::CheckedIncrement(FaseCierre);
    if (steps.Avanzar) steps.Avanzar();
  }
  if (!steps.Conectado || !steps.Conectado()) return;
  Label2.set_back(base::palette::kBlack);
  Picture2.set_picture(Picture::connected);
}

void MDI::Picture2_Click() {
  if (FaseCierre > 0) return;
  // The state may change while the user makes up his mind; the answer is to the question asked.
  if (steps.Cerrado && steps.Cerrado()) {
    if (platform().dialogs().Ask("¿Desea Conectarse?") && steps.Conectar) steps.Conectar();
  } else if (steps.Conectado && steps.Conectado()) {
    if (platform().dialogs().Ask("¿Desea Desconectarse?") && steps.Desconectar) steps.Desconectar();
  }
}

void MDI::Check1_Click() {
  if (FaseCierre == 0 && steps.Refresco) steps.Refresco(Check1.value() == 1);
}

void MDI::Check2_Click() { Picture1.set_visible(Check2.value() == 1); }

void MDI::Form_Resize() {
  if (state() != State::maximized) return;
  const auto set_width = [](platform::Control& control, int width) {
    auto place = control.rect();
    place.width = width;
    control.set_rect(place);
  };
  set_width(Tickctl1, inner_width() - 650);
  set_width(Tickctl2, inner_width() - 400);
  set_width(Picture3, Tickctl2.rect().width + 100);
}

}  // namespace shell

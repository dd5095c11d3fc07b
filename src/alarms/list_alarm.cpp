#include "alarms/list_alarm.h"

namespace alarms {

ListAlarm::ListAlarm(platform::Platform& platform, const std::int16_t& fase_cierre)
    : Window(platform), Timer1(platform, 1000, false), FaseCierre(fase_cierre) {
  set_caption("Lista de alarmas");
  List1.set_tool_tip("Listado de alarmas disparadas");
  Command1.set_caption("&Ver Alarmas");
  Command1.set_tool_tip("Muestra las alarmas definidas");
  Command3.set_caption("&Eliminar");
  Command3.set_tool_tip("Muestra las alarmas definidas, para eliminarlas");
  Command5.set_caption("&Salir");
  Command5.set_tool_tip("Para el aviso y oculta la lista");

  Command1.on_click = [this] { Command1_Click(); };
  Command3.on_click = [this] { Command3_Click(); };
  Command5.on_click = [this] { Command5_Click(); };
  Timer1.on_tick = [this] { Timer1_Timer(); };
}

void ListAlarm::Command1_Click() {
  if (steps.VerAlarmas) steps.VerAlarmas();
}

void ListAlarm::Command3_Click() { Command1_Click(); }

void ListAlarm::Command5_Click() {
  Timer1.set_enabled(false);
  Hide();
}

void ListAlarm::Form_DblClick() { Timer1.set_enabled(false); }

void ListAlarm::Timer1_Timer() { platform().sound().Beep(); }

void ListAlarm::Disparada(std::string_view line) {
  Timer1.set_enabled(true);
  List1.AddItem(line);
}

bool ListAlarm::OnQueryUnload() {
  if (FaseCierre > 0) return true;
  Command5_Click();
  return false;
}

void ListAlarm::OnUnload() { Timer1.set_enabled(false); }

}  // namespace alarms

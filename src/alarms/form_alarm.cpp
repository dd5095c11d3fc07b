#include "alarms/form_alarm.h"

namespace alarms {

FormAlarm::FormAlarm(platform::Platform& platform, AlarmTable& table,
                     const std::int16_t& fase_cierre)
    : Window(platform), table_(table), FaseCierre(fase_cierre) {
  set_caption("Listado de Alarmas");
  List1.set_tool_tip("Listado de alarmas activas");
  Command7.set_caption("&Eliminar");
  Command7.set_tool_tip("Borra la alarma seleccionada");
  Command9.set_caption("&Listar");
  Command9.set_tool_tip("Lista las alarmas activadas");
  Command10.set_caption("&Salir");
  Command10.set_tool_tip("Oculta el listado");

  List1.on_click = [this] { List1_Click(); };
  Command7.on_click = [this] { Command7_Click(); };
  Command9.on_click = [this] { Command9_Click(); };
  Command10.on_click = [this] { Command10_Click(); };
}

void FormAlarm::List1_Click() { Seleccion = static_cast<std::int16_t>(List1.list_index() + 1); }

void FormAlarm::Command7_Click() {
  if (Seleccion > 0) table_.Eliminar(Seleccion);
  Rellenar();
  table_.GuardarAlarmas();
}

void FormAlarm::Command9_Click() {
  if (steps.VerLista) steps.VerLista();
}

void FormAlarm::Command10_Click() { Hide(); }

void FormAlarm::Rellenar() {
  List1.Clear();
  for (int i = 1; i <= table_.NumAlarmas(); ++i) List1.AddItem(table_.Linea(i));
}

void FormAlarm::AgregarUltima() { List1.AddItem(table_.Linea(table_.NumAlarmas())); }

bool FormAlarm::OnQueryUnload() {
  if (FaseCierre > 0) return true;
  Hide();
  return false;
}

}  // namespace alarms

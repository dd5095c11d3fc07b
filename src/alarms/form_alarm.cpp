#include "alarms/form_alarm.h"

namespace alarms {

FormAlarm::FormAlarm(platform::Platform& platform, AlarmTable& table,
                     const std::int16_t& fase_cierre)
    : Window(platform), table_(table), FaseCierre(fase_cierre) {
  set_caption("Listado de Alarmas");
}

void FormAlarm::List1_Click() {}
void FormAlarm::Command7_Click() { (void)table_; }
void FormAlarm::Command9_Click() {}
void FormAlarm::Command10_Click() {}
void FormAlarm::Rellenar() {}
void FormAlarm::AgregarUltima() {}
bool FormAlarm::OnQueryUnload() { return FaseCierre > 0; }

}  // namespace alarms

#include "alarms/list_alarm.h"

namespace alarms {

ListAlarm::ListAlarm(platform::Platform& platform, const std::int16_t& fase_cierre)
    : Window(platform), Timer1(platform, 1000, false), FaseCierre(fase_cierre) {
  set_caption("Lista de alarmas");
}

void ListAlarm::Command1_Click() {}
void ListAlarm::Command3_Click() {}
void ListAlarm::Command5_Click() {}
void ListAlarm::Form_DblClick() {}
void ListAlarm::Timer1_Timer() {}
void ListAlarm::Disparada(std::string_view) {}
bool ListAlarm::OnQueryUnload() { return FaseCierre > 0; }

}  // namespace alarms

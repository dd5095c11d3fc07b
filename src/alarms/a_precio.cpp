#include "alarms/a_precio.h"

namespace alarms {

APrecio::APrecio(platform::Platform& platform, AlarmTable& table, FormAlarm& list)
    : Window(platform), table_(table), list_(list) {
  set_caption(" Definir Alarmas");
}

void APrecio::OnLoad() {}
void APrecio::OnActivate() {}
void APrecio::Text1_Change() {}
void APrecio::Command1_Click() { (void)table_; }
void APrecio::Command2_Click() { (void)list_; }

}  // namespace alarms

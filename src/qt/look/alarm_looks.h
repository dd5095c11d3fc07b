#pragma once

#include "alarms/a_precio.h"
#include "alarms/form_alarm.h"
#include "alarms/list_alarm.h"
#include "qt/ports/looks.h"

namespace qt {

/// The dialog that defines an alarm.
[[nodiscard]] Look MakeAlarmLook(alarms::APrecio& dialog, FrameClock& clock);
/// The defined alarms.
[[nodiscard]] Look MakeDefinedAlarmsLook(alarms::FormAlarm& window, FrameClock& clock);
/// The fired alarms, under a red band while the program beeps. A double click beside the list takes
/// note.
[[nodiscard]] Look MakeFiredAlarmsLook(alarms::ListAlarm& window, FrameClock& clock);

}  // namespace qt

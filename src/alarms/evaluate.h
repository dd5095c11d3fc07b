#pragma once

#include "alarms/alarm_table.h"
#include "alarms/form_alarm.h"
#include "alarms/list_alarm.h"
#include "store/instrument.h"

namespace alarms {

/// Tests the alarms against an instrument that has just been updated; fires at most one: into the
/// list of fired alarms, which comes up and beeps, and out of play. Writes no file.
void EvaluarAlarmas(const store::Instrumento& record, AlarmTable& table, FormAlarm& defined,
                    ListAlarm& fired);

}  // namespace alarms

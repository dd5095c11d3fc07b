#include "alarms/evaluate.h"

namespace alarms {

void EvaluarAlarmas(const store::Instrumento&, AlarmTable&, FormAlarm&, ListAlarm&) {}

}  // namespace alarms

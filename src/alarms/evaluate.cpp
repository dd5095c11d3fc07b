#include "alarms/evaluate.h"

#include <string>

#include "base/masks.h"
#include "base/text.h"

namespace alarms {
namespace {

std::string FiredLine(const store::Instrumento& record, const Alarma& alarm) {
  std::string line = base::NumberText(record.Hora);
  line.append(" ").append(record.Nombre.utf8());
  line.append(" A ").append(base::NumberText(record.Ultimo));
  line.append("  Orden: ").append(alarm.AlarmaOrden);
  return base::OneLine(line);
}

}  // namespace

void EvaluarAlarmas(const store::Instrumento& record, AlarmTable& table, FormAlarm& defined,
                    ListAlarm& fired) {
  const int i = table.Cumplida(record);
  if (i == 0) return;
  fired.Disparada(FiredLine(record, table[i]));
  table.Marcar(i);
  defined.Rellenar();
  fired.Raise();
}

}  // namespace alarms

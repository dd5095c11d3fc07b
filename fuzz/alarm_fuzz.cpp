// "Al.Set" of any content.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "alarms/alarm_file.h"

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

// One pass through the file cleans the texts; the second must find nothing left to do.
void CheckRoundTrip(const std::vector<alarms::Alarma>& alarms) {
  const std::string text = alarms::EncodeAlarms(alarms);
  const auto again = alarms::DecodeAlarms(text);
  Check(again.size() == alarms.size());
  for (std::size_t i = 0; i < alarms.size(); ++i) {
    Check(again[i].AlarmaValor == alarms[i].AlarmaValor);
    Check(again[i].AlarmaValorInicial == alarms[i].AlarmaValorInicial);
    Check(again[i].AlarmaTipo == alarms[i].AlarmaTipo);
    Check(again[i].AlarmaCondicion == alarms[i].AlarmaCondicion);
  }
  Check(alarms::EncodeAlarms(again) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto alarms = alarms::DecodeAlarms({reinterpret_cast<const char*>(data), size});
  Check(alarms.size() <= alarms::kMaxAlarmas);
  for (const alarms::Alarma& alarm : alarms) {
    Check(std::isfinite(alarm.AlarmaValor) && std::isfinite(alarm.AlarmaValorInicial));
    Check(alarm.AlarmaOrden.find('\n') == std::string::npos);
  }
  CheckRoundTrip(alarms);
  return 0;
}

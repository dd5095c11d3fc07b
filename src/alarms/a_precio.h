#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "alarms/alarm_table.h"
#include "alarms/form_alarm.h"
#include "platform/controls.h"
#include "platform/window.h"
#include "store/instrument_store.h"
#include "store/suggestions.h"

namespace alarms {

/// Dialog that defines an alarm on price or volume. Takes any text; an alarm on a code that nobody
/// knows never fires. What the constructor takes outlives it.
class APrecio : public platform::Window {
 public:
  APrecio(platform::Platform& platform, const store::InstrumentStore& store, AlarmTable& table,
          FormAlarm& list);

  platform::TextBox Text1, Text2, Text3;    // code, threshold, order
  platform::Label Label5;                   // "Precio" or "Volumen", in front of Text2
  platform::OptionButton Option1;           // at or above
  platform::OptionButton Option2{Option1};  // at or below; prices only
  platform::Button Command1, Command2;      // accept, cancel
  std::int16_t tipo = 0;                    // kind of the next alarm; set before it is shown

  void Text1_Change();
  /// Instruments for what is being typed as the code.
  [[nodiscard]] std::vector<store::Sugerencia> Sugerencias(std::string_view text) const {
    return store::Sugerencias(store_, text);
  }
  /// Adds and saves the alarm and unloads. With a threshold that isn't above 0, which then has the
  /// focus, or with the table full, the dialog stays. Either way `tipo` is 0 then.
  void Command1_Click();
  void Command2_Click();

 protected:
  void OnLoad() override;
  void OnActivate() override;

 private:
  void PrepararControles();
  bool Aceptar(float value);

  const store::InstrumentStore& store_;
  AlarmTable& table_;
  FormAlarm& list_;
};

}  // namespace alarms

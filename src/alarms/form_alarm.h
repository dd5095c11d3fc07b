#pragma once

#include <cstdint>
#include <functional>

#include "alarms/alarm_table.h"
#include "platform/controls.h"
#include "platform/window.h"

namespace alarms {

/// Lists the defined alarms and deletes them, writing the file at once. Closing only hides it.
class FormAlarm : public platform::Window {
 public:
  struct Steps {
    std::function<void()> VerLista;  // shows the fired alarms
  };

  /// `FaseCierre` is above 0 while the program ends: only then it lets itself be closed.
  FormAlarm(platform::Platform& platform, AlarmTable& table, const std::int16_t& FaseCierre);

  platform::ListBox List1;
  platform::Button Command7, Command9, Command10;  // delete, fired alarms, hide
  std::int16_t Seleccion = 0;  // line last clicked, from 1; a delete doesn't reset it
  Steps steps;

  void List1_Click();
  /// Without a line clicked only writes the file.
  void Command7_Click();
  void Command9_Click();
  void Command10_Click();
  /// Fills the list anew from the table.
  void Rellenar();
  /// Adds the line of the last alarm.
  void AgregarUltima();

 protected:
  bool OnQueryUnload() override;

 private:
  AlarmTable& table_;
  const std::int16_t& FaseCierre;
};

}  // namespace alarms

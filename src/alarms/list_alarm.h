#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/controls.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace alarms {

/// Lists the alarms that have fired, oldest first, and beeps every second until the user takes
/// note. Closing only hides it, and counts as taking note.
class ListAlarm : public platform::Window {
 public:
  struct Steps {
    std::function<void()> VerAlarmas;  // shows the defined alarms
  };

  /// `FaseCierre` is above 0 while the program ends: only then it lets itself be closed.
  ListAlarm(platform::Platform& platform, const std::int16_t& FaseCierre);

  platform::ListBox List1;
  platform::Button Command1, Command3, Command5;  // defined alarms (both), hide
  platform::Timer Timer1;                         // beeps while it is on
  Steps steps;

  void Command1_Click();
  void Command3_Click();
  void Command5_Click();
  /// Takes note; the window stays.
  void Form_DblClick();
  void Timer1_Timer();
  /// An alarm has fired: lists its line and beeps from now on. Raising the window is the caller's.
  void Disparada(std::string_view line);

 protected:
  bool OnQueryUnload() override;
  void OnUnload() override;

 private:
  const std::int16_t& FaseCierre;
};

}  // namespace alarms

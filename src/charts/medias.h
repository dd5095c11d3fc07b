#pragma once

#include <functional>
#include <string>

#include "platform/controls.h"
#include "platform/window.h"

namespace charts {

/// Asks for the period of a moving average. While it is seen no other window takes input. Method
/// and field of the average are on the form, and read by nobody.
class Medias : public platform::Window {
 public:
  explicit Medias(platform::Platform& platform);

  platform::TextBox Text1;            // periods
  platform::ComboBox Combo1, Combo2;  // method, field
  platform::Button Command1, Command2;

  /// Shows it, and calls `then` with what stands in `Text1` once it is hidden: "" where the user
  /// has given up. Not while the program ends.
  void Pedir(std::function<void(const std::string& periodos)> then);

  void Command1_Click();
  void Command2_Click();

 protected:
  bool OnQueryUnload() override;
};

}  // namespace charts

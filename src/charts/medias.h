#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/controls.h"
#include "platform/window.h"

namespace charts {

/// Asks for the period of a moving average. While it is seen no other window takes input; closing
/// it gives up. Method and field of the average are on the form, and read by nobody.
class Medias : public platform::Window {
 public:
  /// `FaseCierre` is above 0 while the program ends: only then it lets itself be unloaded.
  Medias(platform::Platform& platform, const std::int16_t& FaseCierre);

  platform::TextBox Text1;            // periods
  platform::ComboBox Combo1, Combo2;  // method, field
  platform::Button Command1, Command2;

  /// Shows it, and calls `then` once with what stands in `Text1` when it is hidden: "" where the
  /// user has given up. Who asks while it is seen takes the place of who has asked before. Not
  /// while the program ends.
  void Pedir(std::function<void(const std::string& periodos)> then);

  void Command1_Click();
  void Command2_Click();

 protected:
  bool OnQueryUnload() override;

 private:
  const std::int16_t& FaseCierre;
  std::function<void(const std::string& periodos)> then_;
};

}  // namespace charts

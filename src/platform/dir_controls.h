#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/control.h"

// Controls that choose a directory. Hooks as in controls.h.
namespace platform {

/// Chooses one of the machine's drives. Here there is one, "/".
class DriveBox : public Control {
 public:
  static constexpr std::string_view kDrive = "/";

  /// `on_change` runs on every real change of the drive, by the user or the program.
  std::function<void()> on_change;

  [[nodiscard]] const std::vector<std::string>& drives() const { return drives_; }
  [[nodiscard]] const std::string& drive() const { return drive_; }
  /// False, and nothing changes, for what is no drive.
  bool set_drive(std::string_view drive);
  /// Caption of the label that stands in front of it: its accessible name.
  [[nodiscard]] const std::string& label() const { return label_; }
  void set_label(std::string_view label) { Set(label_, label); }

 private:
  std::vector<std::string> drives_{std::string(kDrive)};
  std::string drive_{kDrive}, label_;
};

/// Chooses a directory.
class DirBox : public Control {
 public:
  /// `on_change` runs on every real change of the path, by the user or the program.
  std::function<void()> on_change;

  /// UTF-8, without "/" at its end but for the root, never two in a row; "" until one is set.
  [[nodiscard]] const std::string& path() const { return path_; }
  /// False, and nothing changes, for what isn't an absolute path of a directory that is there. It
  /// is looked at, links are followed.
  bool set_path(std::string_view path);
  /// Caption of the label that stands in front of it: its accessible name.
  [[nodiscard]] const std::string& label() const { return label_; }
  void set_label(std::string_view label) { Set(label_, label); }

 private:
  std::string path_, label_;
};

}  // namespace platform

#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/ports.h"
#include "platform/spreadsheet.h"
#include "platform/window_list.h"

namespace platform {

/// A moment on the machine's clock, in local time.
struct LocalTime {
  int year = 0;  // all four digits
  int month = 1, day = 1;
  int hour = 0, minute = 0, second = 0;
  friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

/// A file that comes with the program. Both are there for the whole run.
struct ShippedFile {
  std::string name;  // plain, without a directory
  std::string_view bytes;
};

/// Everything that the logic asks of the outside, and the list of loaded windows. One a program (or
/// a test); outlives every window, timer and socket.
class Platform {
 public:
  virtual ~Platform() = default;

  WindowList windows;

  [[nodiscard]] virtual std::unique_ptr<Socket> MakeSocket(Socket::Events events) = 0;
  [[nodiscard]] virtual std::unique_ptr<TimerPort> MakeTimer(std::function<void()> tick) = 0;
  /// Runs `task` once from the event loop, after the handler that runs now; tasks keep their order.
  virtual void Post(std::function<void()> task) = 0;
  /// Now, where the machine stands. Cheap enough to be asked for every message.
  [[nodiscard]] virtual LocalTime local_time() const = 0;
  [[nodiscard]] virtual Desktop& desktop() = 0;
  [[nodiscard]] virtual Dialogs& dialogs() = 0;
  [[nodiscard]] virtual Clipboard& clipboard() = 0;
  [[nodiscard]] virtual Printer& printer() = 0;
  [[nodiscard]] virtual Sound& sound() = 0;
  [[nodiscard]] virtual OtherWindows& other_windows() = 0;
  [[nodiscard]] virtual Spreadsheet& spreadsheet() = 0;
  /// The user's guide: "index.html" and its pictures.
  [[nodiscard]] virtual std::span<const ShippedFile> manual() const = 0;
};

}  // namespace platform

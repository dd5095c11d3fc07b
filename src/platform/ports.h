#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/palette.h"

// What the outside must offer to the logic.
namespace platform {

class Control;
class Grid;
class Window;

/// One TCP client socket. No event of a socket is raised while a handler of the same socket runs
/// (nor while that handler waits for a modal box): it follows when the handler has ended, in
/// order. Closing by the program raises no event; a normal end by the peer is a `closed` event,
/// never an `error`.
class Socket {
 public:
  enum class State { closed = 0, connecting = 6, connected = 7, error = 9 };
  struct Events {
    std::function<void()> connected;
    /// Bytes are pending. Raised again from the event loop for as long as some are left and the
    /// handler takes some; one that took nothing hears again when more have arrived.
    std::function<void()> data;
    std::function<void()> closed;
    std::function<void(const std::string& text)> error;
  };

  virtual ~Socket() = default;
  virtual void set_remote_host(std::string_view host) = 0;
  [[nodiscard]] virtual const std::string& remote_host() const = 0;
  virtual void set_remote_port(std::uint16_t port) = 0;
  [[nodiscard]] virtual State state() const = 0;
  /// False unless closed. The host is looked up without blocking.
  virtual bool Connect() = 0;
  /// At once, from any state; unread and unsent bytes are gone.
  virtual void Close() = 0;
  /// False unless connected, or when more than 1 MiB would wait to be sent: then nothing of
  /// `bytes` goes out.
  virtual bool Send(std::string_view bytes) = 0;
  /// Bytes that have arrived and are not yet read; valid until the next call. At most a few MiB:
  /// the rest waits with the sender.
  [[nodiscard]] virtual std::string_view pending() const = 0;
  /// Takes the first `count` pending bytes.
  virtual std::string Read(std::size_t count) = 0;
};

/// A repeating alarm of the event loop; made stopped.
class TimerPort {
 public:
  virtual ~TimerPort() = default;
  virtual void Start(int ms) = 0;
  virtual void Stop() = 0;
};

/// Modal boxes. Each call returns when the user has answered; other events run meanwhile. Texts
/// are plain, cut at 2000 characters for display.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual void Message(std::string_view text) = 0;
  /// True on yes.
  virtual bool Ask(std::string_view text) = 0;
  /// A line that the user types; "" when he gives up.
  virtual std::string Input(std::string_view text) = 0;
  /// A colour, out of a box that begins with `current`; none when the user gives up.
  virtual std::optional<base::Color> Color(base::Color current) = 0;
  /// The program ends: open boxes close as if the user had given up, later ones don't open.
  virtual void Dismiss() = 0;
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetText(std::string_view utf8) = 0;
};

class Printer {
 public:
  virtual ~Printer() = default;
  /// Lets the user choose printer and pages and prints all rows of `grid` under `title`.
  virtual void Print(const Grid& grid, std::string_view title) = 0;
};

/// Windows of other programs.
class OtherWindows {
 public:
  using Handle = std::uint32_t;  // 0 is none

  virtual ~OtherWindows() = default;
  /// A top-level window of that class; 0 when there is none, or no way to tell.
  [[nodiscard]] virtual Handle Find(std::string_view window_class) = 0;
  /// Sends it the message of that number, both parameters 0, and doesn't wait. One that is gone
  /// hears nothing.
  virtual void Send(Handle window, std::uint32_t message) = 0;
  /// Types into whatever window has the focus, and doesn't wait: "%{RIGHT}" is Alt and the right
  /// arrow, "%{LEFT}" Alt and the left one. Anything else types nothing.
  virtual void SendKeys(std::string_view keys) = 0;
};

class Sound {
 public:
  virtual ~Sound() = default;
  virtual void Beep() = 0;
};

/// The screen: follows the windows of the logic. The window exists for the whole call only;
/// `Closed` is the last that is heard of it.
class Desktop {
 public:
  virtual ~Desktop() = default;
  /// The window has become visible, or was and is wanted in front.
  virtual void Shown(Window& window) = 0;
  /// As `Shown`, but the keyboard stays where it is.
  virtual void Raised(Window& window) = 0;
  virtual void Hidden(Window& window) = 0;
  virtual void Closed(Window& window) = 0;
  /// Keyboard focus to a control of a window.
  virtual void Focus(Window& window, Control& control) = 0;
  /// Names of the fonts that it has, in order.
  [[nodiscard]] virtual std::vector<std::string> Fonts() const = 0;
};

}  // namespace platform

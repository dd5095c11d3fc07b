#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

namespace qt {

/// A connection to an X server, and what is asked there about windows and keys. Questions about
/// many windows travel together, there and back. A window that is gone answers nothing; nor does
/// any once the server is gone or couldn't be reached, and it isn't looked for again.
class X11Connection {
 public:
  using Windows = std::vector<xcb_window_t>;

  /// "" is the display that the environment names.
  explicit X11Connection(const std::string& display);

  /// The windows that the window manager has listed, if one has.
  [[nodiscard]] std::optional<Windows> ClientList();
  [[nodiscard]] Windows Children(const Windows& parents);
  /// The first whose WM_CLASS has `name` as its instance or class; 0 for none. Of `windows` those
  /// without a WM_CLASS are left.
  [[nodiscard]] xcb_window_t TakeClassed(Windows& windows, std::string_view name);

  /// Goes out with what is flushed next, as all below.
  void SendMessage(xcb_window_t window, std::uint32_t number);
  /// Presses them in order and lets them go the other way round. Nothing unless the server can do
  /// that and its keyboard has all of them.
  void TypeChord(const std::vector<xcb_keysym_t>& keys);
  void Flush();
  /// Forgets the errors and events that have come in; nobody here wants any.
  void Drain();

  [[nodiscard]] xcb_window_t root() const { return root_; }

 private:
  [[nodiscard]] std::vector<xcb_keycode_t> KeycodesOf(const std::vector<xcb_keysym_t>& keys);

  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  xcb_window_t root_ = XCB_NONE;
  xcb_atom_t client_list_ = XCB_NONE, message_ = XCB_NONE;
};

}  // namespace qt

#include "qt/ports/x11_connection.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <span>
#include <xcb/xtest.h>

namespace qt {
namespace {

constexpr std::size_t kMostWindows = 4096;
constexpr std::uint32_t kMostClassWords = 64;

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};

/// The answer to a request, or none. Its error, if it has one, is taken back with it.
template <typename Reply, typename Cookie>
std::unique_ptr<Reply, Free> Gather(Reply* (*reply)(xcb_connection_t*, Cookie,
                                                    xcb_generic_error_t**),
                                    xcb_connection_t* connection, Cookie cookie) {
  return std::unique_ptr<Reply, Free>(reply(connection, cookie, nullptr));
}

/// Sends a request for each window, then waits for the answers one after the other.
template <typename Reply, typename Cookie, typename Ask, typename Take>
void ForEach(const X11Connection::Windows& windows, Ask ask,
             Reply* (*reply)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
             xcb_connection_t* connection, Take take) {
  std::vector<Cookie> cookies;
  cookies.reserve(windows.size());
  for (const xcb_window_t window : windows) cookies.push_back(ask(window));
  for (std::size_t i = 0; i < windows.size(); ++i) {
    take(windows[i], Gather(reply, connection, cookies[i]));
  }
}

xcb_intern_atom_cookie_t AskAtom(xcb_connection_t* connection, std::string_view name) {
  return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t GatherAtom(xcb_connection_t* connection, xcb_intern_atom_cookie_t cookie) {
  const auto reply = Gather(xcb_intern_atom_reply, connection, cookie);
  return reply ? reply->atom : xcb_atom_t{XCB_NONE};
}

xcb_window_t RootOf(xcb_connection_t* connection, int screen) {
  if (xcb_connection_has_error(connection) != 0) return XCB_NONE;
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; screen > 0 && screens.rem > 1; --screen) xcb_screen_next(&screens);
  return screens.rem > 0 ? screens.data->root : xcb_window_t{XCB_NONE};
}

/// Two texts, each with a NUL behind it: instance and class.
bool HasName(std::string_view wm_class, std::string_view name) {
  const std::size_t first = wm_class.find('\0');
  if (wm_class.substr(0, first) == name) return true;
  if (first == std::string_view::npos) return false;
  const std::string_view second = wm_class.substr(first + 1);
  return second.substr(0, second.find('\0')) == name;
}

}  // namespace

X11Connection::X11Connection(const std::string& display) {
  int screen = 0;
  connection_.reset(xcb_connect(display.empty() ? nullptr : display.c_str(), &screen));
  root_ = RootOf(connection_.get(), screen);
  const auto list = AskAtom(connection_.get(), "_NET_CLIENT_LIST");
  const auto message = AskAtom(connection_.get(), "_COTIRAMA_MESSAGE");
  client_list_ = GatherAtom(connection_.get(), list);
  message_ = GatherAtom(connection_.get(), message);
}

std::optional<X11Connection::Windows> X11Connection::ClientList() {
  const auto reply = Gather(xcb_get_property_reply, connection_.get(),
                            xcb_get_property(connection_.get(), 0, root_, client_list_,
                                             XCB_ATOM_WINDOW, 0, kMostWindows));
  if (!reply || reply->type != XCB_ATOM_WINDOW || reply->format != 32) return std::nullopt;
  Windows list(reply->value_len);
  if (!list.empty()) {
    std::memcpy(list.data(), xcb_get_property_value(reply.get()), list.size() * sizeof list[0]);
  }
  return list;
}

X11Connection::Windows X11Connection::Children(const Windows& parents) {
  Windows children;
  const auto ask = [this](xcb_window_t window) {
    return xcb_query_tree(connection_.get(), window);
  };
  ForEach(parents, ask, xcb_query_tree_reply, connection_.get(),
          [&](xcb_window_t /*parent*/, const auto& reply) {
            if (!reply || children.size() >= kMostWindows) return;
            const xcb_window_t* const first = xcb_query_tree_children(reply.get());
            children.insert(children.end(), first, first + reply->children_len);
          });
  children.resize(std::min(children.size(), kMostWindows));
  return children;
}

xcb_window_t X11Connection::TakeClassed(Windows& windows, std::string_view name) {
  xcb_window_t found = XCB_NONE;
  Windows unclassed;
  const auto ask = [this](xcb_window_t window) {
    return xcb_get_property(connection_.get(), 0, window, XCB_ATOM_WM_CLASS,
                            XCB_GET_PROPERTY_TYPE_ANY, 0, kMostClassWords);
  };
  ForEach(windows, ask, xcb_get_property_reply, connection_.get(),
          [&](xcb_window_t window, const auto& reply) {
            if (!reply) return;
            if (reply->format != 8) return unclassed.push_back(window);
            const std::string_view wm_class(
                static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len);
            if (found == XCB_NONE && HasName(wm_class, name)) found = window;
          });
  windows = std::move(unclassed);
  return found;
}

void X11Connection::SendMessage(xcb_window_t window, std::uint32_t number) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = message_;
  event.data.data32[0] = number;
  xcb_send_event(connection_.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&event));
}

std::vector<xcb_keycode_t> X11Connection::KeycodesOf(const std::vector<xcb_keysym_t>& keys) {
  const xcb_setup_t* const setup = xcb_get_setup(connection_.get());
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const auto reply = Gather(xcb_get_keyboard_mapping_reply, connection_.get(),
                            xcb_get_keyboard_mapping(connection_.get(), setup->min_keycode, count));
  if (!reply || reply->keysyms_per_keycode == 0) return {};
  const std::span symbols(xcb_get_keyboard_mapping_keysyms(reply.get()),
                          static_cast<std::size_t>(reply->length));
  std::vector<xcb_keycode_t> codes;
  for (const xcb_keysym_t key : keys) {
    const auto at = std::find(symbols.begin(), symbols.end(), key) - symbols.begin();
    if (static_cast<std::size_t>(at) == symbols.size()) return {};
    codes.push_back(
        static_cast<xcb_keycode_t>(setup->min_keycode + at / reply->keysyms_per_keycode));
  }
  return codes;
}

void X11Connection::TypeChord(const std::vector<xcb_keysym_t>& keys) {
  const auto* const xtest = xcb_get_extension_data(connection_.get(), &xcb_test_id);
  if (xtest == nullptr || xtest->present == 0) return;
  const auto codes = KeycodesOf(keys);
  const auto fake = [this](std::uint8_t type, xcb_keycode_t code) {
    xcb_test_fake_input(connection_.get(), type, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
  };
  for (const xcb_keycode_t code : codes) fake(XCB_KEY_PRESS, code);
  std::for_each(codes.rbegin(), codes.rend(), [&](auto code) { fake(XCB_KEY_RELEASE, code); });
}

void X11Connection::Flush() { xcb_flush(connection_.get()); }

void X11Connection::Drain() {
  // What an answer or a flush has brought in lies in the queue; more isn't read.
  while (const std::unique_ptr<void, Free> event{xcb_poll_for_queued_event(connection_.get())}) {
  }
}

}  // namespace qt

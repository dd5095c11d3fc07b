#include "qt/ports/x11_windows.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/prctl.h>
#include <vector>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QProcess>

namespace {

constexpr const char* kClass = "MetaStockMainWnd";
// Two texts in one, as WM_CLASS holds them.
const std::string kSomeone("x\0Xterm\0", 8), kAsClass("a\0MetaStockMainWnd\0", 19),
    kAsInstance("MetaStockMainWnd\0A\0", 19), kLonger("MetaStockMainWnd2\0", 18);

/// An X server of this test's own, which ends with it.
class Server {
 public:
  void Start(const QStringList& more) {
    // So that it doesn't outlive a test that crashes.
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process_.start("Xvfb", QStringList{"-displayfd", "1", "-nolisten", "tcp"} + more);
    while (!process_.canReadLine() && process_.waitForReadyRead()) {
    }
    display_ = ":" + process_.readLine().trimmed().toStdString();
  }
  ~Server() { Stop(); }
  void Stop() {
    process_.kill();
    process_.waitForFinished();
  }
  [[nodiscard]] const std::string& display() const { return display_; }

 private:
  QProcess process_;
  std::string display_;
};

/// A server, another program on it and the port under test.
class X11WindowsTest : public testing::Test {
 protected:
  void SetUp() override { Start({}); }
  void Start(const QStringList& more) {
    server.Start(more);
    program.reset(xcb_connect(server.display().c_str(), nullptr));
    ASSERT_EQ(xcb_connection_has_error(program.get()), 0) << "no Xvfb?";
    root = xcb_setup_roots_iterator(xcb_get_setup(program.get())).data->root;
    windows = qt::MakeX11Windows(server.display());
  }

  xcb_window_t Make(xcb_window_t parent, const std::string& wm_class = {}) {
    const xcb_window_t window = xcb_generate_id(program.get());
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
    xcb_create_window(program.get(), XCB_COPY_FROM_PARENT, window, parent, 0, 0, 9, 9, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    if (!wm_class.empty()) Set(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, wm_class);
    xcb_map_window(program.get(), window);
    Atom("WM_NAME");
    return window;
  }
  /// As a window manager does.
  void List(const std::vector<xcb_window_t>& listed) {
    const std::string bytes(reinterpret_cast<const char*>(listed.data()), listed.size() * 4);
    Set(root, Atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 32, bytes);
    Atom("WM_NAME");
  }
  void Destroy(xcb_window_t window) {
    xcb_destroy_window(program.get(), window);
    Atom("WM_NAME");
  }
  void Focus(xcb_window_t window) {
    xcb_set_input_focus(program.get(), XCB_INPUT_FOCUS_NONE, window, XCB_CURRENT_TIME);
    Atom("WM_NAME");
  }
  /// What the program has been sent: "number/0/0" of messages, "+alt", "-alt" of keys.
  std::string Received() {
    std::string log;
    Atom("WM_NAME");
    while (auto* const event = xcb_poll_for_event(program.get())) {
      log += Text(*event);
      std::free(event);
    }
    return log;
  }

  Server server;
  std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> program{nullptr, xcb_disconnect};
  xcb_window_t root = XCB_NONE;
  std::unique_ptr<platform::OtherWindows> windows;

 private:
  void Set(xcb_window_t window, xcb_atom_t atom, xcb_atom_t type, std::uint8_t format,
           const std::string& bytes) {
    xcb_change_property(program.get(), XCB_PROP_MODE_REPLACE, window, atom, type, format,
                        static_cast<std::uint32_t>(bytes.size() * 8 / format), bytes.data());
  }
  /// Has been through the server, and so has all that was asked for before.
  xcb_atom_t Atom(const std::string& name) {
    const auto length = static_cast<std::uint16_t>(name.size());
    auto* const reply = xcb_intern_atom_reply(
        program.get(), xcb_intern_atom(program.get(), 0, length, name.data()), nullptr);
    const xcb_atom_t atom = reply->atom;
    std::free(reply);
    return atom;
  }
  std::string Text(const xcb_generic_event_t& event) {
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    switch (event.response_type & 0x7f) {
      case XCB_KEY_PRESS:
        return "+" + Symbol(key.detail);
      case XCB_KEY_RELEASE:
        return "-" + Symbol(key.detail);
      case XCB_CLIENT_MESSAGE:
        if (message.type != Atom("_COTIRAMA_MESSAGE") || message.format != 32) return "?";
        return std::to_string(message.data.data32[0]) + "/" +
               std::to_string(message.data.data32[1]) + "/" +
               std::to_string(message.data.data32[2]) + " ";
      default:
        return {};  // everybody hears when the keyboard has changed
    }
  }
  std::string Symbol(xcb_keycode_t code) {
    auto* const reply = xcb_get_keyboard_mapping_reply(
        program.get(), xcb_get_keyboard_mapping(program.get(), code, 1), nullptr);
    const xcb_keysym_t symbol = *xcb_get_keyboard_mapping_keysyms(reply);
    std::free(reply);
    return symbol == 0xffe9 ? "alt" : symbol == 0xff51 ? "left" : symbol == 0xff53 ? "right" : "?";
  }
};

TEST_F(X11WindowsTest, FindsAWindowByItsClassAmongThoseListedOrNotFarBelowTheRoot) {
  Make(root, kSomeone);
  Make(root, kLonger);
  EXPECT_EQ(windows->Find(kClass), 0U);
  const auto inner = Make(Make(Make(root)), kAsInstance);
  EXPECT_EQ(windows->Find(kClass), inner);
  List({});
  EXPECT_EQ(windows->Find(kClass), 0U);
  const auto gone = Make(root, kAsClass), outer = Make(root, kAsClass);
  List({Make(root, kSomeone), gone, outer, inner});
  EXPECT_EQ(windows->Find(kClass), gone);
  Destroy(gone);
  EXPECT_EQ(windows->Find(kClass), outer);
}

TEST_F(X11WindowsTest, MessagesReachAWindowWhileItLives) {
  const auto window = Make(root, kAsClass), other = Make(root, kAsClass);
  Destroy(other);
  windows->Send(0, 1042);
  windows->Send(window, 1042);
  for (int i = 0; i < 1000; ++i) windows->Send(other, 1042);
  windows->Send(window, 0x80000001U);
  EXPECT_EQ(windows->Find(kClass), window);
  EXPECT_EQ(Received(), "1042/0/0 2147483649/0/0 ");
}

TEST_F(X11WindowsTest, KeysGoToTheWindowWithTheFocus) {
  Focus(Make(root, kSomeone));
  for (const char* keys : {"%{RIGHT}", "%{UP}", "", "%{LEFT}"}) windows->SendKeys(keys);
  EXPECT_EQ(windows->Find(kClass), 0U);
  EXPECT_EQ(Received(), "+alt+right-right-alt+alt+left-left-alt");
}

TEST_F(X11WindowsTest, AServerThatCannotTypeStillAnswers) {
  server.Stop();
  Start({"-extension", "XTEST"});
  const auto window = Make(root, kAsClass);
  Focus(window);
  windows->SendKeys("%{RIGHT}");
  EXPECT_EQ(windows->Find(kClass), window);
  EXPECT_EQ(Received(), "");
}

TEST_F(X11WindowsTest, AServerThatIsGoneOrNeverWasShowsNoWindow) {
  const auto window = Make(root, kAsClass);
  EXPECT_EQ(windows->Find(kClass), window);
  server.Stop();
  const auto never = qt::MakeX11Windows(server.display());
  ASSERT_EQ(QGuiApplication::platformName(), QString("offscreen"));
  const auto elsewhere = qt::MakeOtherWindows();
  for (auto* const none : {windows.get(), never.get(), elsewhere.get()}) {
    none->Send(window, 1042);
    none->SendKeys("%{LEFT}");
    EXPECT_EQ(none->Find(kClass), 0U);
    none->Send(window, 1042);
  }
}

}  // namespace

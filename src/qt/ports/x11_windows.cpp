#include "qt/ports/x11_windows.h"

#include <optional>
#include <utility>

#include <QGuiApplication>

#include "qt/ports/x11_connection.h"

namespace qt {
namespace {

// Window managers put a program's window into a frame or two of their own.
constexpr int kLevels = 3;

constexpr xcb_keysym_t kAlt = 0xffe9, kLeft = 0xff51, kRight = 0xff53;

class NoWindows : public platform::OtherWindows {
 public:
  [[nodiscard]] Handle Find(std::string_view /*window_class*/) override { return 0; }
  void Send(Handle /*window*/, std::uint32_t /*message*/) override {}
  void SendKeys(std::string_view /*keys*/) override {}
};

class X11Windows : public platform::OtherWindows {
 public:
  explicit X11Windows(std::string display) : display_(std::move(display)) {}

  [[nodiscard]] Handle Find(std::string_view window_class) override {
    const Handle found = Look(Connection(), window_class);
    connection_->Drain();
    return found;
  }

  void Send(Handle window, std::uint32_t message) override {
    if (window == 0) return;
    Connection().SendMessage(window, message);
    Deliver();
  }

  void SendKeys(std::string_view keys) override {
    if (keys != "%{RIGHT}" && keys != "%{LEFT}") return;
    Connection().TypeChord({kAlt, keys == "%{RIGHT}" ? kRight : kLeft});
    Deliver();
  }

 private:
  static Handle Look(X11Connection& connection, std::string_view window_class) {
    if (auto list = connection.ClientList()) return connection.TakeClassed(*list, window_class);
    X11Connection::Windows windows{connection.root()};
    Handle found = 0;
    for (int level = 0; level < kLevels && found == 0; ++level) {
      // Below a window that has a class lies a program's own business.
      windows = connection.Children(windows);
      found = connection.TakeClassed(windows, window_class);
    }
    return found;
  }

  X11Connection& Connection() {
    if (!connection_) connection_.emplace(display_);
    return *connection_;
  }
  void Deliver() {
    connection_->Flush();
    connection_->Drain();
  }

  std::string display_;
  std::optional<X11Connection> connection_;
};

}  // namespace

std::unique_ptr<platform::OtherWindows> MakeOtherWindows() {
  if (QGuiApplication::platformName() == QLatin1String("xcb")) return MakeX11Windows();
  return std::make_unique<NoWindows>();
}

std::unique_ptr<platform::OtherWindows> MakeX11Windows(std::string display) {
  return std::make_unique<X11Windows>(std::move(display));
}

}  // namespace qt

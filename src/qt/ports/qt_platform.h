#pragma once

#include <QObject>

#include "calc/mirror.h"
#include "platform/platform.h"
#include "qt/ports/calc_process.h"
#include "qt/ports/looks.h"
#include "qt/ports/qt_clipboard.h"
#include "qt/ports/qt_desktop.h"
#include "qt/ports/qt_dialogs.h"
#include "qt/ports/qt_printer.h"
#include "qt/ports/qt_socket.h"
#include "qt/ports/qt_sound.h"
#include "qt/ports/x11_windows.h"

namespace qt {

/// The ports on a real screen and network. Lives while the application object does; `looks`
/// outlives it. An empty `resolve` takes every host as it is.
class QtPlatform : public platform::Platform {
 public:
  explicit QtPlatform(const Looks& looks, Resolver resolve = {});

  [[nodiscard]] std::unique_ptr<platform::Socket> MakeSocket(
      platform::Socket::Events events) override;
  [[nodiscard]] std::unique_ptr<platform::TimerPort> MakeTimer(std::function<void()> tick) override;
  void Post(std::function<void()> task) override;
  [[nodiscard]] platform::LocalTime local_time() const override;
  [[nodiscard]] QtDesktop& desktop() override { return desktop_; }
  [[nodiscard]] QtDialogs& dialogs() override { return dialogs_; }
  [[nodiscard]] QtClipboard& clipboard() override { return clipboard_; }
  [[nodiscard]] QtPrinter& printer() override { return printer_; }
  [[nodiscard]] QtSound& sound() override { return sound_; }
  [[nodiscard]] platform::OtherWindows& other_windows() override { return *other_windows_; }
  [[nodiscard]] calc::Mirror& spreadsheet() override { return sheet_; }
  [[nodiscard]] std::span<const platform::ShippedFile> manual() const override { return manual_; }

 private:
  Resolver resolve_;
  QObject posted_;  // what is posted goes with it
  QtDesktop desktop_;
  QtDialogs dialogs_;
  QtClipboard clipboard_;
  QtPrinter printer_;
  QtSound sound_;
  std::unique_ptr<platform::OtherWindows> other_windows_;
  CalcProcess helper_;
  calc::Mirror sheet_{*this, helper_};
  std::vector<platform::ShippedFile> manual_;
};

}  // namespace qt

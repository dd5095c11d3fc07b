#pragma once

#include <functional>

#include <QObject>

#include "qt/ports/qt_platform.h"
#include "shell/terminal.h"
#include "support/temp_dir.h"

namespace load {

/// Runs the event loop as the program does, until `done` holds (asked 50 times a second) or the
/// seconds are over. Says whether it held.
bool RunUntil(double seconds, const std::function<bool()>& done);
void RunFor(double seconds);

/// The whole program on a screen as the user has it, in a directory of its own; every server that
/// it calls is found at `port` of this machine. Counts the paints of what it is told to watch.
class Desk : public QObject {
 public:
  explicit Desk(quint16 port);
  ~Desk() override;

  /// The board fills a main window of usual size. Its paints count.
  void ShowBoard();
  /// From now on the paints of a shown window's control count.
  void Watch(const platform::Window& window, platform::Control& control);
  /// Of a window that has been shown.
  [[nodiscard]] QWidget* WidgetOf(const platform::Window& window, platform::Control& control) {
    return platform_.desktop().FrameOf(window)->look().widget_of(control);
  }
  void LogIn();
  /// Records that have been applied, masters and quotes.
  [[nodiscard]] int records() const { return terminal.Conecta.decoder().ContadorRecords(); }
  [[nodiscard]] int paints() const { return paints_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  qt::Looks looks_;
  support::TempDir directory_;
  qt::QtPlatform platform_;
  int paints_ = 0;

 public:
  shell::Terminal terminal;
};

}  // namespace load

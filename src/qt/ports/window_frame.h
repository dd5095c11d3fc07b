#pragma once

#include <functional>

#include <QMdiSubWindow>
#include <QObject>
#include <QPointer>
#include <QString>

#include "platform/window.h"
#include "qt/ports/frame_clock.h"
#include "qt/ports/looks.h"

class QHelpEvent;

namespace qt {

/// Keeps a window of the logic and its widget alike: caption, place, state and visibility one way,
/// place, state and the user's wish to close it the other. The place of a window of its own is
/// without the frame of the window manager. It may be ended from within such a wish.
/// The window and the clock outlive it.
class WindowFrame : public QObject, public platform::Watcher, public Refreshable {
 public:
  /// `area` takes the window where it is a child.
  WindowFrame(platform::Window& window, Look look, FrameClock& clock, QMdiArea* area);
  ~WindowFrame() override;

  /// In front and not minimised. A child comes up first within its area and no larger than that.
  /// Another that has no place yet comes up in the middle of `over`, or of the screen where that is
  /// nullptr.
  void Show(const QWidget* over);
  /// As `Show`, but the keyboard stays where it is.
  void ShowQuietly(const QWidget* over);
  void Hide();
  void Focus(platform::Control& control);
  /// On top of the others as it is, without the keyboard.
  void Raise();

  [[nodiscard]] const Look& look() const { return look_; }
  /// The widget with its title bar; nullptr once the main window that held it is gone.
  [[nodiscard]] QWidget* outer() const { return outer_; }
  /// It got the keyboard, or the main window was pressed: the window manager may have put it in
  /// front of others.
  std::function<void()> on_lifted;

  void Touched(platform::Model& model) override;
  void Refresh() override;
  [[nodiscard]] bool Ready() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Apply();
  void ApplyPlace(const platform::Rect& rect);
  void FitIntoArea();
  void MakeVisible(const QWidget* over);
  void Centre(const QWidget* over);
  void Report();
  void Activate();
  void HideOuter();
  [[nodiscard]] bool ShowCaption(const QHelpEvent& help) const;

  platform::Window& window_;
  Look look_;
  FrameClock& clock_;
  QPointer<QMdiArea> area_;
  QPointer<QWidget> outer_;  // gone where its main window went first
  platform::Rect known_;     // where the widget was last put, or said that it was
  bool showing_ = false;
  bool fitted_ = false;  // once: later the user may have it partly outside
};

/// The largest size with which a window of its own fits on the screen of `widget`, with what the
/// window manager adds.
[[nodiscard]] QSize RoomOnScreen(const QWidget& widget);

/// The caption as a window title, which has a mark of its own for changed documents.
[[nodiscard]] QString TitleText(std::string_view caption);

}  // namespace qt

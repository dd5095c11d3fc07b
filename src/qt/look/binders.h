#pragma once

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QObject>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include "charts/chart.h"
#include "platform/control.h"
#include "platform/controls.h"
#include "platform/dir_controls.h"
#include "platform/grid.h"
#include "platform/text_log.h"
#include "platform/ticker.h"
#include "qt/ports/frame_clock.h"

namespace qt {

class ChartWidget;
class DirBoxWidget;
class GridWidget;
class LabelWidget;
class ListWidget;
class PictureWidget;
class TextLogWidget;
class TickerWidget;

/// Ties the widgets of one window to their models. What the program writes reaches the widget with
/// the next frame in which `host`, the window's widget, is visible; what the user does goes to the
/// model at once. Models, host and clock outlive it; it ends before the widgets.
class Binders {
 public:
  Binders(QWidget& host, FrameClock& clock);
  ~Binders();
  Binders(const Binders&) = delete;
  Binders& operator=(const Binders&) = delete;

  /// What is bound from now on also stands where its model says, instead of in a layout.
  void PlaceByModels() { placed_ = true; }
  /// Whether a label or field takes the colours of its model or those of the theme.
  enum class Colors { model, theme };
  void Bind(platform::Label& label, LabelWidget& widget, Colors colors = Colors::model);
  /// A locked box is read only: it takes the focus and can be copied from. Enter goes to a box that
  /// has a hook for it, else to the dialog.
  void Bind(platform::TextBox& box, QLineEdit& widget, Colors colors = Colors::theme);
  /// Makes `widget` an editable box that chooses, completes and inserts nothing by itself, and
  /// leaves the wheel to what it stands on. Its width is that of 12 characters, unless another
  /// minimum contents length was set before.
  void Bind(platform::ComboBox& box, QComboBox& widget);
  void Bind(platform::Button& button, QPushButton& widget);
  void Bind(platform::CheckBox& box, QCheckBox& widget);
  /// Options of one group stand on one parent of their own, so that Qt takes them for one too.
  void Bind(platform::OptionButton& option, QRadioButton& widget);
  void Bind(platform::ListBox& list, ListWidget& widget);
  void Bind(platform::PictureBox& picture, PictureWidget& widget);
  void Bind(platform::DriveBox& box, QComboBox& widget);
  void Bind(platform::DirBox& box, DirBoxWidget& widget);
  /// Its text is up to the window, by `shown`, which runs each time after it has been brought up to
  /// the model. One without an end shows neither text nor progress.
  void Bind(platform::ProgressBar& bar, QProgressBar& widget, std::function<void()> shown);
  void Bind(platform::TextLog& log, TextLogWidget& widget);
  void Bind(platform::Ticker& ticker, TickerWidget& widget);
  void Bind(platform::Grid& grid, GridWidget& widget);
  /// The widget stays where it is, whatever the place of the chart, and while that is out of sight.
  void Bind(charts::Chart& chart, ChartWidget& widget);
  /// A panel that other controls stand on.
  void BindPanel(platform::Control& panel, QWidget& widget);
  /// Runs `show` with the frame after each change of `model`, and once now.
  void Follow(platform::Control& model, QWidget& widget, std::function<void()> show);

  [[nodiscard]] QWidget* WidgetOf(const platform::Control& control) const;
  /// For connections that end with this object.
  [[nodiscard]] QObject* context() { return &context_; }

 private:
  class Bond;

  QWidget& host_;
  FrameClock& clock_;
  QObject context_;
  bool placed_ = false;
  std::vector<std::function<void()>> drops_;
  std::vector<std::unique_ptr<Bond>> bonds_;
  std::unordered_map<const platform::Control*, QWidget*> widgets_;
};

}  // namespace qt

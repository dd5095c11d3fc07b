#pragma once

#include <functional>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/dir_controls.h"

namespace qt {

/// The path of a directory: typed, or looked for in a dialog of its own, which nobody waits for.
/// What is typed counts with Enter, and when the keyboard goes elsewhere. A path that the model
/// refuses stays to be mended, with a note below it, until the box goes out of sight. Until `Drop`
/// the model must live.
class DirBoxWidget : public QWidget {
 public:
  /// Runs each time after the path of the model has been shown.
  std::function<void()> on_path;

  explicit DirBoxWidget(platform::DirBox& box, QWidget* parent = nullptr);

  [[nodiscard]] QLineEdit& field() const { return *field_; }
  /// Takes over what is typed. False for no directory.
  bool Commit();

  /// Shows the path of the model where that is another one by now.
  void Refresh();
  /// The model goes away.
  void Drop() { box_ = nullptr; }

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  void Browse();
  bool Choose(const QString& path);
  void ShowPath();
  void Refuse(const QString& why);

  platform::DirBox* box_;
  QLineEdit* field_;
  QPushButton* browse_;
  QLabel* note_;
  QString shown_;
};

}  // namespace qt

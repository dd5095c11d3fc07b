#pragma once

#include <string>
#include <vector>

#include <QComboBox>
#include <QObject>

#include "platform/controls.h"

namespace qt {

/// Entries and text of a combo box on the screen, which become those of its model and of which Qt
/// changes none by itself. Only a choice of the user is a click: in the popup, or by the arrow
/// keys. After a text that isn't typed the cursor stands before the blanks at its end. The box
/// closes its popup where its entries change. Box and widget outlive it.
class ComboBond : public QObject {
 public:
  ComboBond(platform::ComboBox& box, QComboBox& widget, QObject* parent);

  /// Brings entries and text up to the model.
  void Show();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowText(const QString& text);
  void Fill();
  void FitIndex();
  void Choose(int index);

  platform::ComboBox& box_;
  QComboBox& widget_;
  std::vector<std::string> shown_;
};

}  // namespace qt

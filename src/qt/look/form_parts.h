#pragma once

#include <memory>

#include <QDialog>
#include <QGridLayout>
#include <QLabel>

#include "qt/look/binders.h"
#include "qt/look/small_widgets.h"
#include "qt/look/theme.h"
#include "qt/ports/looks.h"

// The parts that dialogs are made of.
namespace qt {

inline constexpr int kFieldHeight = 34;

/// The text of a label, without the blanks around it and with its `letter` for the mnemonic that
/// leads to its field.
[[nodiscard]] QString WithMnemonic(std::string_view text, QChar letter);

/// The quiet label that stands in front of a control, with that mnemonic.
template <typename Labelled>
[[nodiscard]] QLabel* LabelFor(const Labelled& control, QChar letter, QWidget* parent) {
  return QuietLabel(WithMnemonic(control.label(), letter), TextFont(), parent);
}

/// A field in row `row` of the form, behind `label`, bound to `box`.
QLineEdit* AddField(QGridLayout& form, int row, QLabel* label, platform::TextBox& box,
                    Binders& binders);

/// A button at the end of the row, bound to `button`.
QPushButton* AddButton(QHBoxLayout& row, platform::Button& button, Binders& binders);

[[nodiscard]] Look LookOf(QDialog* dialog, const std::shared_ptr<Binders>& binders);

}  // namespace qt

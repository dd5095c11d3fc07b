#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "qt/look/binders.h"
#include "store/suggestions.h"

namespace qt {

/// Shows below `field` what `find` gives for a code that is being typed, and puts the chosen code
/// alone into `box`. The list never takes the keyboard or the mouse from the dialog: it closes with
/// the first press elsewhere, which does what it would do without it, and as soon as the code is
/// complete. Enter takes a line only once the user has gone to it.
void Suggest(std::function<std::vector<store::Sugerencia>(std::string_view)> find,
             platform::TextBox& box, QLineEdit& field, Binders& binders);

}  // namespace qt

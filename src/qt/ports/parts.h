#pragma once

#include <QString>

namespace qt {

/// Full path of a part of the program that is a file of its own: beside the executable, else where
/// it was built. "" when it is in neither place.
[[nodiscard]] QString FindPart(const QString& name);

}  // namespace qt

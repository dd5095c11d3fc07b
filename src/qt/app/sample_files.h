#pragma once

#include <QString>

#include "demo/feed_options.h"

namespace qt {

/// Writes the sample stores of that market into `directory`, made if it is missing, and says on the
/// standard output what to do with them. False, with a word on the error output, where something
/// can't be written; where a file of theirs is there already, nothing is.
[[nodiscard]] bool WriteSampleStores(const demo::FeedOptions& market, const QString& directory);

}  // namespace qt

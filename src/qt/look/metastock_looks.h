#pragma once

#include "metastock/form1.h"
#include "metastock/meta.h"
#include "qt/ports/looks.h"

namespace qt {

/// The dialog that chooses the directories of both stores and shows their entries.
[[nodiscard]] Look MakeStoresLook(metastock::Meta& window, FrameClock& clock);
/// The progress of the history download.
[[nodiscard]] Look MakeDownloadLook(metastock::Form1& window, FrameClock& clock);

}  // namespace qt

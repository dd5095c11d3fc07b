#include "qt/look/form_parts.h"
#include "qt/look/metastock_looks.h"

namespace qt {

Look MakeDownloadLook(metastock::Form1& /*window*/, FrameClock& clock) {
  auto* dialog = new QDialog;
  return LookOf(dialog, std::make_shared<Binders>(*dialog, clock));
}

}  // namespace qt
